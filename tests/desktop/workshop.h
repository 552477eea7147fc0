#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "desktop/windows.h"
#include "support/simulated.h"

namespace desktop_test {

// Real windows off the screen over the whole program on virtual time, with a simulated unit on the line.
struct Workshop : support::Simulated {
    explicit Workshop(const desktop::Theme& theme = desktop::LightTheme()) : windows(program, theme) {
        program.shell.hooks.End = [this] { ended = true; };
    }

    void Begin() {
        ASSERT_TRUE(Start());
        windows.Sync();
    }
    void BeginLive() {
        ASSERT_TRUE(Connect());
        windows.Sync();
    }
    void Pass(std::int64_t milliseconds) {
        Run(milliseconds);
        windows.Sync();
    }
    // What the windows have asked for in turn, one thing after the other.
    static void Settle() {
        constexpr int Turns = 4;
        for (int turn = 0; turn < Turns; ++turn) QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
    pages::PageStack& Stack() { return program.shell.stack; }
    // Opens a page as its menu entry does.
    void Choose(shell::MenuId menu, int index) {
        const pages::Outcome outcome = shell::ChooseMenu(program.shell, menu, index);
        ASSERT_TRUE(outcome.ok) << Text(std::string(pages::ReasonKey(outcome.why)).c_str(), "MOTIVI") << " "
                                << Stack().Open().back()->Name() << index;
        windows.Sync();
    }
    desktop::Dialog& Window(const pages::Page& page) { return *windows.Of(page); }
    // The widget of a control, by its name.
    template <class Widget>
    Widget& Find(const pages::Page& page, const char* name) {
        auto* widget = Window(page).findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    template <class Widget>
    Widget& InMain(const char* name) {
        auto* widget = windows.Main().findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    bool ended = false;
    desktop::Windows windows;
};

}  // namespace desktop_test
