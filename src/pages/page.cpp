#include "pages/page.h"

#include <algorithm>

namespace pages {

bool TakesFocus(const Control& control) {
    switch (control.GetKind()) {
        case Kind::Label:
        case Kind::Lamp:
        case Kind::Picture:
        case Kind::Chart:
            return false;
        default:
            return control.Enabled() && control.Visible() && !control.Locked();
    }
}

void Page::PutLast(Control& control) {
    std::erase(controls_, &control);
    controls_.push_back(&control);
}

void Page::SetTitle(std::string title) {
    if (title_ == title) return;
    title_ = std::move(title);
    Touch();
}

void Page::SetEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    Touch();
}

Control* Page::Find(std::string_view name) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [name](const Control* c) { return c->Name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Page::SetFocus(Control* control) {
    if (focus_ == control) return;
    if (focus_ != nullptr) before_ = focus_;
    focus_ = control;
    Touch();
}

Control* Page::NextFocus(const Control* from) const {
    const std::size_t count = controls_.size();
    const auto at = std::find(controls_.begin(), controls_.end(), from);
    const std::size_t start = at == controls_.end() ? count - 1 : static_cast<std::size_t>(at - controls_.begin());
    for (std::size_t step = 1; step <= count; ++step) {
        Control* next = controls_[(start + step) % count];
        if (TakesFocus(*next)) return next;
    }
    return nullptr;
}

Button* Page::KeyButton(std::string_view key) const {
    for (const KeyRow& row : keys_) {
        if (row.key == key && row.button->Enabled() && row.button->Visible()) return row.button;
    }
    return nullptr;
}

std::string_view Page::KeyOf(const Button& button) const {
    for (const KeyRow& row : keys_) {
        if (row.button == &button) return row.key;
    }
    return {};
}

}  // namespace pages
