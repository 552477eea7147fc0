#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page.h"
#include "tuning/conversions.h"
#include "tuning/page_rows.h"

namespace shell {
struct Shell;
}

namespace tuning {

struct FieldControls {
    const FieldRow* row;
    pages::Control* value;
    pages::Control* initial;
};

struct GridControls {
    const GridRow* row;
    pages::Control* value;
    pages::Control* initial;
};

// The button shows the tables and their initial values, its twin the initial values alone.
struct TableControls {
    const TableRow* row;
    pages::Control* button;
    pages::Control* initialButton;
    std::vector<GridControls> grids;
};

struct PageSet {
    const PageRow* row;
    std::vector<FieldControls> fields;
    std::vector<TableControls> tables;
    std::vector<std::size_t> records;
};

// The rows, tables and table buttons of all pages of a dialog, made from their descriptions. Captions and units are
// shared by the pages, and so are grids of one name.
class PageControls {
  public:
    // `section`: of the pages' texts.
    PageControls(pages::Page& page, const shell::Shell& shell, std::string_view section, std::span<const PageRow> rows);

    std::function<void()> onView;  // another view is on the screen: a page, its list of parameters or its tables

    const std::vector<PageSet>& All() const { return sets_; }
    const PageSet& Shown() const { return sets_[shown_]; }
    // Captions, entries and list of parameters of that page, and nothing of any other.
    void Show(std::size_t page);
    // The view in which the value of a record stands: the list of parameters or a table.
    void Reveal(std::size_t record);
    // Units of the fields; some follow a selector.
    void ShowUnits(const Context& context);
    // The control that shows the value of a record of the page shown; null when there is none.
    pages::Control* ValueOf(std::size_t record) const;
    // Caption of a button of tables in the present view.
    std::string Caption(std::string_view button) const;
    // The grid in which a record of the page shown stands, and its cell there; null when it stands in none.
    const GridControls* GridOf(std::size_t record, pages::CellPlace* cell = nullptr) const;
    // Whether the tables of a button are shown.
    bool IsOpen(std::string_view button) const;

  private:
    pages::Control& Make(std::string name, pages::Kind kind);
    void MakeButtons(const PageRow& row);
    PageSet MakeSet(const PageRow& row);
    FieldControls MakeField(const FieldRow& row);
    TableControls MakeTable(const TableRow& row);
    GridControls MakeGrid(const GridRow& row);

    void Press(std::string_view button, bool initial);
    void ShowView();
    void ShowField(const FieldControls& field, bool visible);
    void ShowButtons(const TableControls& table);
    void ShowTable(const TableControls& table, bool values, bool initials);
    void LoadTexts();
    std::vector<std::string> Entries(const FieldRow& row) const;

    pages::Page& page_;
    const shell::Shell& shell_;
    std::string_view section_;
    std::vector<std::unique_ptr<pages::Control>> made_;
    pages::Array<pages::Label> captions_;
    pages::Array<pages::Label> units_;
    std::vector<PageSet> sets_;
    std::size_t shown_ = 0;
    std::string_view open_;  // button of the tables on the screen; none: the list
    bool valuesOpen_ = false;
    bool initialsOpen_ = false;
};

}  // namespace tuning
