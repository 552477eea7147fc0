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

// Goes round the controls in that direction (1 or -1), once; from the end when `from` is none of them.
Control* Page::FocusAt(const Control* from, int direction) const {
    const auto count = static_cast<std::ptrdiff_t>(controls_.size());
    const auto at = std::find(controls_.begin(), controls_.end(), from);
    const std::ptrdiff_t start = at == controls_.end() ? count - 1 : at - controls_.begin();
    for (std::ptrdiff_t step = 1; step <= count; ++step) {
        Control* next = controls_[static_cast<std::size_t>((start + count + direction * step) % count)];
        if (TakesFocus(*next)) return next;
    }
    return nullptr;
}

Button* Page::KeyButton(std::string_view key) const {
    Button* seen = nullptr;
    for (const KeyRow& row : keys_) {
        if (row.key != key || !row.button->Visible()) continue;
        if (row.button->Enabled()) return row.button;
        if (seen == nullptr) seen = row.button;
    }
    return seen;
}

std::string_view Page::KeyOf(const Button& button) const {
    for (const KeyRow& row : keys_) {
        if (row.button == &button) return row.key;
    }
    return {};
}

}  // namespace pages
