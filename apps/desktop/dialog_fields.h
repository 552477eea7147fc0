#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>
#include <array>
#include <map>
#include <vector>

#include "desktop/binder.h"
#include "desktop/layout.h"

namespace desktop {

// Where the eye is: why a value was refused. Beside a field in the place of its unit, and of its button, which does
// nothing meanwhile; above a table.
struct LimitLabel {
    std::vector<const pages::Control*> values;
    std::array<const pages::Control*, 2> covered;  // may be null
    QLabel* words;
};
using LimitLabels = std::vector<LimitLabel>;

// What a page lets edit and choose, in one grid: fields in rows of label, initial value, value, unit; tables with their
// initial values; lists.
class FieldsBuilder {
  public:
    FieldsBuilder(QWidget& parent, PageView& view, const PagePlan& plan, const Look& look);

    // Null when the page has nothing of the kind.
    QWidget* Build();
    LimitLabels TakeLimits() { return std::move(limits_); }

  private:
    enum Column { Caption, Initial, Value, Unit, Action, ColumnCount };

    void AddHeads();
    void AddRow(const FieldRow& fields);
    void AddLimits(int row, const FieldRow& fields);
    QLabel* MakeLimits(std::vector<const pages::Control*> values,
                       std::array<const pages::Control*, 2> covered = {nullptr, nullptr});
    void AddTable(const FieldRow& table);
    void AddAxes();
    void AddWide();
    // The row of this label: rows of one label take turns in one place.
    int RowOf(const pages::Control* label);
    void Put(const pages::Control* control, int row, Column column, int span = 1, Qt::Alignment alignment = {});
    QWidget& WidgetOf(const pages::Control& control) const { return *view_.WidgetOf(control); }

    QWidget& parent_;
    PageView& view_;
    const PagePlan& plan_;
    const Look& look_;
    QGridLayout* grid_ = nullptr;
    int next_ = 0;
    std::map<const pages::Control*, int> rows_;
    LimitLabels limits_;
};

}  // namespace desktop
