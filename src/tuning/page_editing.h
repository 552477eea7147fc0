#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "tuning/limits.h"
#include "tuning/page_controls.h"

namespace tuning {

struct Tuning;

// The edits of the page shown: what is typed or chosen becomes the record's edited figure when it is legal, and is sent
// back to the fitter with its limits when it is not.
class PageEditing {
  public:
    PageEditing(Tuning& tuning, PageControls& controls, pages::Label& message, std::string_view section);

    std::function<void()> onTouched;                  // a value has been typed or chosen
    std::function<void(std::size_t record)> onTyped;  // a key has reached the field of a record
    std::function<void()> onFigures;                  // figures have been shown anew

    // Takes a figure for a record as if it had been typed and left; none: what was typed is dropped. False: it has been
    // refused.
    bool Take(std::size_t record, const std::string& text);
    // The whole page: the first figure that the page does not accept is refused, and its control gets the focus.
    bool CheckAll();
    // A fixed speed leaves the other figures of its page as the unit holds them.
    void ApplySpeed();
    // Both columns from the records.
    void Show();
    // Marks the value of a record, for which the unit did not answer, and brings it on the screen unless the hand is
    // typing.
    void Flag(std::size_t record);
    // Takes the marks away; those of figures that were refused and not yet put right stay.
    void ClearFlags();
    // Why no value of the page can be edited; None: they can.
    void SetWhy(pages::Reason why);
    // Edits that have not been stored are gone, also from the records that other pages show.
    void Forget();

  private:
    void Wire(const FieldControls& field);
    void Wire(const GridControls& grid);
    void FieldLeft(const FieldControls& field);
    void CellEdited(const pages::Control& grid, int row, int column, const std::string& text);
    void Accept(std::size_t record, double figure);
    void Refuse(std::size_t record, const Limits& limits);
    std::string LimitWords(const pages::Control& control, const Limits& limits) const;
    std::string TypedOr(std::size_t record, const std::string& figure) const;
    void BringUp(std::size_t record, pages::Control& control);
    void Keep(std::size_t record, const std::string& text);
    void Release(std::size_t record);
    void CheckCells(const GridControls& grid);
    void MarkCells();
    void ShareCell(std::size_t record);
    void LockFields();
    bool FixedSpeed() const;

    Tuning& tuning_;
    PageControls& controls_;
    pages::Label& message_;
    std::string_view section_;
    std::optional<std::size_t> typed_;         // whose field has been typed into
    std::map<std::size_t, std::string> kept_;  // what was typed into the cells of tables that were refused
    std::set<std::size_t> flagged_;            // the other cells that are marked
    pages::Reason why_ = pages::Reason::None;  // why nothing of the page can be edited
};

}  // namespace tuning
