#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pages/reason.h"

namespace pages {

class Page;

enum class Kind { Label, Field, Button, Option, Check, Combo, List, Grid, Lamp, Picture, Chart };

// Which keys a field lets through. Enter is no character anywhere: it confirms the edit by leaving the field.
enum class KeyFilter {
    Any,
    Digits,  // digits alone; blanks, signs and points are dropped
};

// What a message tells, beside its words.
enum class Tone { Plain, Progress, Done, Refused, Failed };

using Cells = std::vector<std::vector<std::string>>;

// A cell of a grid, its headers counted in; -1, -1 is none.
struct CellPlace {
    int row = -1;
    int column = -1;

    bool operator==(const CellPlace&) const = default;
};

// One control of a page: a value that windows and the console show, and the handlers that its inputs reach. A setter
// raises the versions of control and page only when something really changes. Every text is in code page 1252.
class Control {
  public:
    using Handler = std::function<void()>;
    using CellHandler = std::function<void(int row, int column, const std::string& text)>;

    Control(Page& page, std::string name, Kind kind);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    Kind GetKind() const { return kind_; }
    Page& Owner() const { return page_; }
    std::int64_t Version() const { return version_; }

    const std::string& Text() const { return text_; }
    Tone GetTone() const { return tone_; }
    bool Enabled() const { return why_ == Reason::None; }
    Reason Why() const { return why_; }
    bool Visible() const { return visible_; }
    bool Locked() const { return locked_; }
    bool Selected() const { return !selection_.empty(); }  // of an option or a check: it is on
    std::size_t MaxLength() const { return maxLength_; }   // 0: no limit
    const std::vector<std::string>& Items() const { return items_; }
    // A remark beside each entry of a list, in the same order; may be empty.
    const std::vector<std::string>& Details() const { return details_; }
    int Index() const { return selection_.empty() ? -1 : selection_.front(); }  // chosen entry, or a picture's cell
    const std::vector<int>& Selection() const { return selection_; }
    bool Multiple() const { return multiple_; }
    const Cells& GetCells() const { return cells_; }
    int HeaderRows() const { return headerRows_; }
    int HeaderColumns() const { return headerColumns_; }
    const std::string& Colour() const { return colour_; }  // "red", "green", "yellow", "white", "blue" or "#RRGGBB"
    // A mark that the eye must find: an edited field, a refused one, the cell under the engine's present state.
    bool Changed() const { return changed_; }
    bool Refused() const { return refused_; }
    // Of a refused figure: what would be legal, in words; empty where the mark says something else.
    const std::string& Legal() const { return legal_; }
    int MarkedRow() const { return markedRow_; }
    int MarkedColumn() const { return markedColumn_; }
    // Of a grid: the cell in which the hand stands, those that were edited, and those whose figures were refused.
    const CellPlace& FocusCell() const { return focusCell_; }
    const std::vector<CellPlace>& ChangedCells() const { return changedCells_; }
    const std::vector<CellPlace>& RefusedCells() const { return refusedCells_; }

    void SetText(std::string text) { Say(Tone::Plain, std::move(text)); }
    void Say(Tone tone, std::string text);
    void Enable(bool on, Reason why = Reason::PageDisabled) { SetWhy(on ? Reason::None : why); }
    void SetWhy(Reason why);
    void SetVisible(bool visible);  // a control that goes away gives the focus on
    void SetLocked(bool locked);
    void SetMaxLength(std::size_t length);
    void SetItems(std::vector<std::string> items);
    void SetDetails(std::vector<std::string> details);
    void SetIndex(int index);  // -1: nothing chosen
    void SetSelection(std::vector<int> selection);
    void SetSelected(bool on) { SetIndex(on ? 0 : -1); }
    void SetMultiple(bool multiple) { multiple_ = multiple; }
    void SetCells(Cells cells, int headerRows, int headerColumns);
    void SetCell(int row, int column, const std::string& text);  // outside the grid: nothing happens
    void SetColour(std::string colour);
    void SetChanged(bool changed);
    void SetRefused(bool refused, std::string legal = {});
    void MarkCell(int row, int column);  // -1, -1: none
    void SetFocusCell(CellPlace cell);
    void SetChangedCells(std::vector<CellPlace> cells);
    void SetRefusedCells(std::vector<CellPlace> cells);

    // Set once when the page is built.
    KeyFilter filter = KeyFilter::Any;
    bool escapes = false;  // a button that leaves the page: a refused value in the focused field does not hold it back
    bool takesSameEntry = false;  // a list in which choosing the present entry counts as a choice
    Handler onPress;
    Handler onChange;  // after each accepted key, and after a choice
    Handler onLeave;   // may put the focus back
    Handler onDoubleClick;
    CellHandler onCell;
    // The field that a press of the button fills; null: none. A refused value there does not hold the press back.
    std::function<const Control*()> fills;

    // What stands beside a value in its row; any of them may be missing. Set once when the page is built.
    struct Beside {
        Control* label = nullptr;
        Control* initial = nullptr;  // the value as the unit holds it
        Control* unit = nullptr;
    };
    Beside beside;

    // An edit that has not been left yet.
    bool pending = false;

  private:
    template <class T>
    void Assign(T& member, T value);
    void Touch();

    Page& page_;
    std::string name_;
    Kind kind_;
    std::int64_t version_ = 1;
    std::string text_;
    Tone tone_ = Tone::Plain;
    Reason why_ = Reason::None;
    bool visible_ = true;
    bool locked_ = false;
    std::size_t maxLength_ = 0;
    std::vector<std::string> items_;
    std::vector<std::string> details_;
    std::vector<int> selection_;
    bool multiple_ = false;
    Cells cells_;
    int headerRows_ = 0;
    int headerColumns_ = 0;
    std::string colour_;
    bool changed_ = false;
    bool refused_ = false;
    std::string legal_;
    int markedRow_ = -1;
    int markedColumn_ = -1;
    CellPlace focusCell_;
    std::vector<CellPlace> changedCells_;
    std::vector<CellPlace> refusedCells_;
};

// The kinds by name, so that a page reads as what it shows.
template <Kind K>
struct ControlOf : Control {
    ControlOf(Page& page, std::string name) : Control(page, std::move(name), K) {}
};
using Label = ControlOf<Kind::Label>;
using Field = ControlOf<Kind::Field>;
using Button = ControlOf<Kind::Button>;
using Option = ControlOf<Kind::Option>;
using Check = ControlOf<Kind::Check>;
using Combo = ControlOf<Kind::Combo>;
using List = ControlOf<Kind::List>;
using Grid = ControlOf<Kind::Grid>;
using Lamp = ControlOf<Kind::Lamp>;
using Picture = ControlOf<Kind::Picture>;
using Chart = ControlOf<Kind::Chart>;

// A group of alike controls under one name; the members are named "Name(0)", "Name(1)", ...
template <class C>
class Array {
  public:
    Array(Page& page, const std::string& name, int count, int first = 0) : first_(first) {
        for (int i = 0; i < count; ++i) {
            members_.push_back(std::make_unique<C>(page, name + "(" + std::to_string(first + i) + ")"));
        }
    }
    C& operator[](int index) { return *members_.at(static_cast<std::size_t>(index - first_)); }
    int First() const { return first_; }
    int Size() const { return static_cast<int>(members_.size()); }
    int End() const { return first_ + Size(); }
    auto begin() { return members_.begin(); }
    auto end() { return members_.end(); }

  private:
    int first_;
    std::vector<std::unique_ptr<C>> members_;
};

}  // namespace pages
