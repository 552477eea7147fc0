#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pages/control.h"

namespace pages {

// Whether Tab stops at the control as it now is.
bool TakesFocus(const Control& control);

// A page: its controls in reading order, its keys, its focus. A page lives as long as the program; Opening resets it.
class Page {
  public:
    explicit Page(std::string name) : name_(std::move(name)) {}
    virtual ~Page() = default;
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Title() const { return title_; }
    bool Enabled() const { return enabled_; }
    bool IsOpen() const { return open_; }
    bool Modal() const { return modal_; }
    std::int64_t Version() const { return version_; }

    void SetTitle(std::string title);
    // A page is disabled while its own transaction runs.
    void SetEnabled(bool enabled);

    const std::vector<Control*>& Controls() const { return controls_; }
    // The control of that name, compared to the letter; null when there is none.
    Control* Find(std::string_view name) const;

    Control* Focus() const { return focus_; }
    void SetFocus(Control* control);
    // The control that had the focus before the present one; for a button that acts on the field the fitter comes from.
    Control* FocusBefore() const { return before_; }
    // The next control behind `from` that can take the focus, going round; null when none can.
    Control* NextFocus(const Control* from) const { return FocusAt(from, 1); }
    Control* PreviousFocus(const Control* from) const { return FocusAt(from, -1); }

    // Keys of the page, for example F1 for the button that saves. A key works while its button is visible and enabled.
    void BindKey(std::string key, Button& button) { keys_.push_back({std::move(key), &button}); }
    // The button that answers to the key now: one that can be pressed, else one that is seen and says why it cannot.
    Button* KeyButton(std::string_view key) const;
    // The first key that is bound to the button, whether it works now or not; empty for none.
    std::string_view KeyOf(const Button& button) const;

    // What the window's close button does; without a handler the page just closes.
    Control::Handler onClose;
    // Why the window cannot be closed now; without it, or with None, it can.
    std::function<Reason()> whyNotClose;

  protected:
    // Behind all other controls in reading order.
    void PutLast(Control& control);
    // Called when the page is put on the stack, before it is shown.
    virtual void Opening() {}
    // Called when it has been taken off, whoever did it.
    virtual void Closed() {}

  private:
    friend class Control;
    friend class PageStack;
    struct KeyRow {
        std::string key;
        Button* button;
    };

    Control* FocusAt(const Control* from, int direction) const;
    void Add(Control& control) { controls_.push_back(&control); }
    void Touch() { ++version_; }

    std::string name_;
    std::string title_;
    bool enabled_ = true;
    bool open_ = false;
    bool modal_ = true;
    std::int64_t version_ = 1;
    std::vector<Control*> controls_;
    std::vector<KeyRow> keys_;
    Control* focus_ = nullptr;
    Control* before_ = nullptr;
};

}  // namespace pages
