#pragma once

#include <QPointer>
#include <map>
#include <memory>

#include "desktop/dialog.h"
#include "desktop/main_window.h"
#include "program/program.h"

namespace desktop {

// All windows of the program, as a function of its pages: Sync opens, closes and updates them. Nothing in the core
// knows of them.
class Windows {
  public:
    Windows(program::Program& program, const Theme& theme);
    ~Windows();
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    // After each event. Where no version has changed it touches nothing and allocates nothing.
    void Sync();
    MainWindow& Main() { return *main_; }
    // The window of a page; null while it has never been open.
    Dialog* Of(const pages::Page& page) const;

  private:
    void FollowStack();
    Dialog& Make(pages::Page& page);
    void FollowPointer();

    program::Program& program_;
    Look look_;
    Hands hands_;
    std::unique_ptr<MainWindow> main_;
    std::map<const pages::Page*, QPointer<Dialog>> dialogs_;
    std::vector<Dialog*> open_;  // bottom to top
    std::int64_t seenStack_ = 0;
    bool waiting_ = false;  // the hourglass shows
    bool syncing_ = false;
};

}  // namespace desktop
