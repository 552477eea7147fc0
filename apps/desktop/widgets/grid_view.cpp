#include "desktop/widgets/grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <limits>

#include "desktop/widgets/grid_delegate.h"

namespace desktop {

namespace {

constexpr int CellPadding = 10;
constexpr auto Editing = QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed;
constexpr int RowPadding = 4;
constexpr int MostRowsShown = 16;
constexpr int FewRows = 4;  // of a table that must be scrolled
constexpr int LeastRowsShown = 1;

std::size_t Index(int number) {
    return static_cast<std::size_t>(number);
}

const std::string& CellText(const pages::Cells& cells, int row, int column) {
    static const std::string none;
    if (row < 0 || Index(row) >= cells.size()) return none;
    const auto& line = cells[Index(row)];
    return column < 0 || Index(column) >= line.size() ? none : line[Index(column)];
}

QString Shown(const std::string& text) {
    return Words(platform::Trim(text));
}
// Figures are short: the words above them stand one below the other.
QString HeaderText(const std::string& text) {
    return Shown(text).replace(QLatin1Char(' '), QLatin1Char('\n'));
}

int ColumnsOf(const pages::Cells& cells) {
    std::size_t most = 0;
    for (const auto& line : cells) most = std::max(most, line.size());
    return static_cast<int>(most);
}

bool MovesHand(int key) {
    constexpr std::array Keys{Qt::Key_Up,   Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,
                              Qt::Key_Home, Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown};
    return std::find(Keys.begin(), Keys.end(), key) != Keys.end();
}

// From a cool to a warm ground; on both the text keeps its contrast.
QColor SurfaceColour(double share, const Theme& theme) {
    const QColor low = theme.dark ? QColor("#16324a") : QColor("#dcecf9");
    const QColor high = theme.dark ? QColor("#5a2c12") : QColor("#fbd9c0");
    const auto between = [share](int a, int b) { return a + static_cast<int>(share * (b - a)); };
    return {between(low.red(), high.red()), between(low.green(), high.green()), between(low.blue(), high.blue())};
}

}  // namespace

GridView::GridView(QWidget* parent) : QTableWidget(parent) {
    setItemDelegate(new GridDelegate(*this));
    setEditTriggers(Editing);
    setTabKeyNavigation(false);
    setSelectionMode(SingleSelection);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerPixel);
    horizontalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionsClickable(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int column) { Point(row, column); });
    connect(this, &QTableWidget::cellClicked, this, &GridView::OpenEdit);
}

bool GridView::IsEditable(int row, int column) const {
    const QTableWidgetItem* cell = item(row, column);
    return !locked_ && cell != nullptr && cell->flags().testFlag(Qt::ItemIsEditable);
}

void GridView::Point(int row, int column) {
    if (IsEditable(row, column) && hasFocus() && onPoint) onPoint(row + headerRows_, column + headerColumns_);
}

// The press has put the hand there, unless another value holds it.
void GridView::OpenEdit(int row, int column) {
    if (hasFocus() && IsEditable(row, column) && currentRow() == row && currentColumn() == column)
        editItem(item(row, column));
}

void GridView::Edit(const QModelIndex& cell, const QString& text) {
    const pages::CellPlace place = PlaceOf(cell);
    if (onEdit) onEdit(place.row, place.column, text);
}

// The page moves the hand when it has something to say of another cell.
void GridView::FollowFocusCell(const pages::Control& control) {
    if (control.FocusCell() == focusCell_) return;
    focusCell_ = control.FocusCell();
    if (focusCell_.row < headerRows_ || focusCell_.column < headerColumns_) return;
    const QSignalBlocker quiet(this);
    setCurrentCell(focusCell_.row - headerRows_, focusCell_.column - headerColumns_);
}

pages::CellPlace GridView::PlaceOf(const QModelIndex& cell) const {
    return {cell.row() + headerRows_, cell.column() + headerColumns_};
}

CellMarks GridView::MarksAt(const QModelIndex& cell) const {
    const pages::CellPlace place = PlaceOf(cell);
    const auto among = [&place](const std::vector<pages::CellPlace>& places) {
        return std::find(places.begin(), places.end(), place) != places.end();
    };
    return {place == markedCell_, among(changedCells_), among(refusedCells_)};
}

bool GridView::HoldsHand() const {
    return pending_ && MarksAt(currentIndex()).refused;
}

void GridView::SetAxes(std::vector<QWidget*> columns, std::vector<QWidget*> rows) {
    columnAxis_ = std::move(columns);
    rowAxis_ = std::move(rows);
    for (const QWidget* line : columnAxis_) {
        verticalHeader()->setDefaultSectionSize(
            std::max(verticalHeader()->defaultSectionSize(), line->sizeHint().height()));
    }
}

// Once, when the table has its shape: the table owns them from then on, and keeps its shape as long as they live.
void GridView::PlaceAxes() {
    const auto place = [this](QWidget* line, int row, int column) {
        if (line->parentWidget() != viewport() && row < rowCount() && column < columnCount())
            setCellWidget(row, column, line);
    };
    for (std::size_t i = 0; i < columnAxis_.size(); ++i) place(columnAxis_[i], 0, static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < rowAxis_.size(); ++i) place(rowAxis_[i], static_cast<int>(i) + 1, 0);
}

void GridView::Show(const pages::Control& control, const Look& look) {
    locked_ = control.Locked() || !control.onCell;
    digits_ = control.filter == pages::KeyFilter::Digits;
    maxLength_ = control.MaxLength();
    setEditTriggers(locked_ ? QAbstractItemView::EditTriggers(NoEditTriggers) : Editing);
    const bool axes = !columnAxis_.empty() || !rowAxis_.empty();
    headerRows_ = axes ? 0 : std::min(control.HeaderRows(), 1);
    headerColumns_ = axes ? 0 : std::min(control.HeaderColumns(), 1);
    theme_ = look.theme;
    pending_ = control.pending;
    markedCell_ = {control.MarkedRow(), control.MarkedColumn()};
    changedCells_ = control.ChangedCells();
    refusedCells_ = control.RefusedCells();
    Fill(control, look);
    FollowFocusCell(control);
    if (surface_) Shade(control, look);
    viewport()->update();
}

void GridView::AddItem(const pages::Control& control, int row, int column, const Look& look) {
    auto* cell = new QTableWidgetItem;
    cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const bool header = row + headerRows_ < control.HeaderRows() || column + headerColumns_ < control.HeaderColumns();
    if (header) {
        // The lines of the axes cover theirs: the hand passes them by.
        cell->setFlags(columnAxis_.empty() ? Qt::ItemIsEnabled : Qt::NoItemFlags);
        cell->setBackground(look.theme.window);
    }
    setItem(row, column, cell);
}

// A new shape makes the table anew; else only the texts that differ are touched.
void GridView::Fill(const pages::Control& control, const Look& look) {
    const pages::Cells& cells = control.GetCells();
    const int rows = std::max(static_cast<int>(cells.size()) - headerRows_, static_cast<int>(rowAxis_.size()));
    const int columns = std::max(ColumnsOf(cells) - headerColumns_, static_cast<int>(columnAxis_.size()));
    const bool reshaped = rows != rowCount() || columns != columnCount();
    if (reshaped) {
        setRowCount(rows);
        setColumnCount(columns);
        horizontalHeader()->setVisible(headerRows_ > 0);
        verticalHeader()->setVisible(headerColumns_ > 0);
        PlaceAxes();
    }
    bool wider = reshaped;
    const auto put = [&](QTableWidgetItem* item, const QString& shown) {
        if (item->text() == shown) return;
        wider = wider || shown.size() > item->text().size();
        item->setText(shown);
    };
    for (int column = 0; headerRows_ > 0 && column < columns; ++column) {
        if (horizontalHeaderItem(column) == nullptr) setHorizontalHeaderItem(column, new QTableWidgetItem);
        put(horizontalHeaderItem(column), HeaderText(CellText(cells, 0, column + headerColumns_)));
    }
    for (int row = 0; row < rows; ++row) {
        if (headerColumns_ > 0) {
            if (verticalHeaderItem(row) == nullptr) setVerticalHeaderItem(row, new QTableWidgetItem);
            put(verticalHeaderItem(row), Shown(CellText(cells, row + headerRows_, 0)));
        }
        for (int column = 0; column < columns; ++column) {
            if (item(row, column) == nullptr) AddItem(control, row, column, look);
            put(item(row, column), Shown(CellText(cells, row + headerRows_, column + headerColumns_)));
        }
    }
    if (wider) FitColumns();
}

// As wide as the widest text of each column; the columns of a table with axes are alike and fill its width.
void GridView::FitColumns() {
    const auto wide = [this](const QTableWidgetItem* item) {
        return item == nullptr ? 0 : fontMetrics().size(0, item->text()).width();
    };
    std::vector<int> widths;
    for (int column = 0; column < columnCount(); ++column) {
        int widest = wide(horizontalHeaderItem(column));
        for (int row = 0; row < rowCount(); ++row) widest = std::max(widest, wide(item(row, column)));
        widths.push_back(widest + CellPadding);
    }
    // A table with axes fills its place.
    const int share = widths.empty() ? 0 : viewport()->width() / columnCount();
    const int most = widths.empty() ? 0 : std::max(share, *std::max_element(widths.begin(), widths.end()));
    for (int column = 0; column < columnCount(); ++column) {
        setColumnWidth(column, columnAxis_.empty() ? widths[Index(column)] : most);
    }
    if (!columnAxis_.empty()) setColumnWidth(0, std::max(most, viewport()->width() - (columnCount() - 1) * most));
    updateGeometry();
}

void GridView::Shade(const pages::Control& control, const Look& look) {
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();
    const auto figureOf = [this](int row, int column) { return item(row, column)->text().toDouble(); };
    const int firstRow = control.HeaderRows() - headerRows_;
    const int firstColumn = control.HeaderColumns() - headerColumns_;
    for (int row = firstRow; row < rowCount(); ++row) {
        for (int column = firstColumn; column < columnCount(); ++column) {
            low = std::min(low, figureOf(row, column));
            high = std::max(high, figureOf(row, column));
        }
    }
    for (int row = firstRow; row < rowCount(); ++row) {
        for (int column = firstColumn; column < columnCount(); ++column) {
            const double share = high > low ? (figureOf(row, column) - low) / (high - low) : 0;
            item(row, column)->setBackground(SurfaceColour(share, look.theme));
        }
    }
}

QSize GridView::sizeHint() const {
    const int frame = 2 * frameWidth();
    const int header = !horizontalHeader()->isHidden() ? horizontalHeader()->sizeHint().height() : 0;
    const int rows = std::clamp(rowCount(), LeastRowsShown, MostRowsShown);
    const int side = !verticalHeader()->isHidden() ? verticalHeader()->sizeHint().width() : 0;
    return {side + horizontalHeader()->length() + frame,
            header + rows * verticalHeader()->defaultSectionSize() + frame};
}

QSize GridView::minimumSizeHint() const {
    if (whole_) return sizeHint();
    const int rows = std::min(rowCount(), FewRows);
    return {std::min(sizeHint().width(), fontMetrics().averageCharWidth() * 30),
            horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize()};
}

// Enter and Tab belong to the page; a locked table takes no characters.
void GridView::keyPressEvent(QKeyEvent* event) {
    if (locked_ && !event->text().isEmpty() && event->text().front().isPrint()) return event->ignore();
    if (HoldsHand() && MovesHand(event->key())) return;
    QTableWidget::keyPressEvent(event);
}

void GridView::mousePressEvent(QMouseEvent* event) {
    if (HoldsHand() && indexAt(event->position().toPoint()) != currentIndex()) return;
    QTableWidget::mousePressEvent(event);
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    if (!columnAxis_.empty()) FitColumns();
}

void GridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    QTableWidget::closeEditor(editor, hint);
    setFocus();
}

}  // namespace desktop
