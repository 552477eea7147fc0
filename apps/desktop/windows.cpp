#include "desktop/windows.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

namespace desktop {

namespace {

constexpr QSize UsualSize(1180, 800);

QSize FirstSize(const QWidget& window) {
    const QScreen* screen = window.screen();
    return screen == nullptr ? UsualSize : UsualSize.boundedTo(screen->availableSize());
}

}  // namespace

Windows::Windows(program::Program& program, const Theme& theme)
    : program_(program), look_{theme, program.shell.language}, hands_(program.shell.stack) {
    hands_.after = [this] { Sync(); };
    main_ = std::make_unique<MainWindow>(program.link, hands_, look_);
    hands_.refused = [this](pages::Reason why) { main_->Status().Tell(look_.Why(why)); };
    main_->resize(FirstSize(*main_));
}

Windows::~Windows() {
    if (waiting_) QApplication::restoreOverrideCursor();
    // A dialog may be the parent of another one: the pointers know what is already gone.
    for (auto& [page, dialog] : dialogs_) delete dialog;
}

Dialog* Windows::Of(const pages::Page& page) const {
    const auto found = dialogs_.find(&page);
    return found == dialogs_.end() ? nullptr : found->second.data();
}

void Windows::Sync() {
    if (syncing_) return;
    syncing_ = true;
    if (program_.shell.stack.Version() != seenStack_) FollowStack();
    main_->Sync();
    for (Dialog* dialog : open_) dialog->Sync();
    FollowPointer();
    syncing_ = false;
}

Dialog& Windows::Make(pages::Page& page) {
    QPointer<Dialog>& dialog = dialogs_[&page];
    if (dialog == nullptr) {
        dialog = new Dialog(page, hands_, look_, [this](const QString& text) { main_->Status().Hint(text); });
    }
    return *dialog;
}

// A modal page stands above the page that it covers; what has closed is hidden and kept with its size.
void Windows::FollowStack() {
    seenStack_ = program_.shell.stack.Version();
    const std::vector<pages::Page*> pages = program_.shell.stack.Open();
    open_.clear();
    QWidget* below = main_.get();
    for (pages::Page* page : pages) {
        if (page == &program_.shell.main) {
            main_->Sync();
            if (!main_->isVisible()) main_->show();
            continue;
        }
        if (page == &program_.link.grafici) continue;
        Dialog& dialog = Make(*page);
        open_.push_back(&dialog);
    }
    for (auto& [page, dialog] : dialogs_) {
        if (dialog != nullptr && dialog->isVisible() && std::find(open_.begin(), open_.end(), dialog) == open_.end())
            dialog->hide();
    }
    for (Dialog* dialog : open_) {
        dialog->Present(*below, main_->Areas());
        below = dialog;
    }
}

void Windows::FollowPointer() {
    const bool wait = program_.shell.state.pointer == shell::Pointer::Wait;
    if (wait == waiting_) return;
    waiting_ = wait;
    if (wait) {
        QApplication::setOverrideCursor(Qt::BusyCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

}  // namespace desktop
