#include "desktop/dialog_fields.h"

#include <QHBoxLayout>

#include "desktop/widgets/caption_label.h"
#include "desktop/widgets/grid_view.h"

namespace desktop {

namespace {

constexpr int HorizontalGap = 14;
constexpr int VerticalGap = 5;
// Of captions: most of them stand in one line; a narrow window folds them.
constexpr int MostChars = 52;
constexpr int LeastChars = 22;
constexpr int MostLimitChars = 30;
constexpr int LeastLimitChars = 16;
constexpr int ListChars = 36;

int CharsWide(const QWidget& widget, int characters) {
    return widget.fontMetrics().averageCharWidth() * characters;
}

// Heads and units are short, and read in one piece.
QLabel* OneLine(QWidget& widget) {
    auto* label = qobject_cast<QLabel*>(&widget);
    if (label != nullptr) label->setWordWrap(false);
    return label;
}

}  // namespace

FieldsBuilder::FieldsBuilder(QWidget& parent, PageView& view, const PagePlan& plan, const Look& look)
    : parent_(parent), view_(view), plan_(plan), look_(look) {}

QWidget* FieldsBuilder::Build() {
    const bool empty = plan_.rows.empty() && plan_.tables.empty() && plan_.wide.empty() && plan_.axes.grid == nullptr;
    if (empty) return nullptr;
    auto* inside = new QWidget(&parent_);
    grid_ = new QGridLayout(inside);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(HorizontalGap);
    grid_->setVerticalSpacing(VerticalGap);
    // Values stand close to their captions; where none has an initial value they end at one edge.
    grid_->setColumnStretch(plan_.heads.initial != nullptr ? ColumnCount : Caption, 1);
    AddHeads();
    // The rows of shared labels stand in the order of the labels, whichever value comes first.
    for (const pages::Control* control : view_.GetPage().Controls()) {
        for (const FieldRow& fields : plan_.rows) {
            if (fields.label == control) RowOf(control);
        }
    }
    for (const FieldRow& fields : plan_.rows) AddRow(fields);
    for (const FieldRow& table : plan_.tables) AddTable(table);
    AddAxes();
    AddWide();
    const bool lists = plan_.rows.empty() && plan_.tables.empty() && plan_.axes.grid == nullptr;
    grid_->setRowStretch(next_, lists ? 0 : 1);
    return inside;
}

int FieldsBuilder::RowOf(const pages::Control* label) {
    if (label == nullptr) return next_++;
    const auto [found, fresh] = rows_.try_emplace(label, next_);
    if (fresh) ++next_;
    return found->second;
}

void FieldsBuilder::Put(const pages::Control* control, int row, Column column, int span, Qt::Alignment alignment) {
    if (control == nullptr) return;
    QWidget& widget = WidgetOf(*control);
    if (grid_->indexOf(&widget) < 0) grid_->addWidget(&widget, row, column, 1, span, alignment);
}

void FieldsBuilder::AddHeads() {
    for (const auto& [head, column] : {std::pair{plan_.heads.initial, Initial}, std::pair{plan_.heads.value, Value}}) {
        if (head == nullptr) continue;
        const auto side = column == Initial ? Qt::AlignRight : Qt::AlignLeft;
        if (auto* label = OneLine(WidgetOf(*head))) label->setAlignment(side | Qt::AlignBottom);
        Put(head, next_, column);
    }
    ++next_;
}

void FieldsBuilder::AddRow(const FieldRow& fields) {
    const int row = RowOf(fields.label);
    if (fields.label != nullptr && fields.initial != nullptr)
        static_cast<CaptionLabel&>(WidgetOf(*fields.label)).SetRoom(MostChars, LeastChars);
    Put(fields.label, row, Caption);
    Put(fields.initial, row, Initial);
    Put(fields.value, row, Value);
    Put(fields.unit, row, Unit);
    if (fields.unit != nullptr) OneLine(WidgetOf(*fields.unit));
    Put(fields.action, row, Action);
    if (fields.label != nullptr) view_.SetNameOf(*fields.label, *fields.value);
    AddLimits(row, fields);
}

void FieldsBuilder::AddLimits(int row, const FieldRow& fields) {
    if (plan_.strip == nullptr) return;
    grid_->addWidget(MakeLimits({fields.value}, {fields.unit, fields.action}), row, Unit, 1,
                     fields.action == nullptr ? 1 : Action - Unit + 1);
}

QLabel* FieldsBuilder::MakeLimits(std::vector<const pages::Control*> values,
                                  std::array<const pages::Control*, 2> covered) {
    auto* limits = new CaptionLabel(&parent_);
    limits->setObjectName(QString::fromStdString(values.front()->Name()) + QStringLiteral("Limiti"));
    limits->SetRoom(MostLimitChars, LeastLimitChars);
    QPalette palette = limits->palette();
    palette.setColor(QPalette::WindowText, look_.theme.bad);
    limits->setPalette(palette);
    limits->hide();
    limits_.push_back({std::move(values), covered, limits});
    return limits;
}

// The initial values end where their column does, those to be edited begin where theirs does: so the heads of both
// stand above the tables too.
void FieldsBuilder::AddTable(const FieldRow& table) {
    const int row = RowOf(table.label);
    if (row + 1 == next_) ++next_;
    Put(table.label, row, Caption, Value - Caption);
    if (plan_.strip != nullptr) grid_->addWidget(MakeLimits({table.value}), row, Value, 1, ColumnCount - Value);
    for (const pages::Control* grid : {table.initial, table.value}) static_cast<GridView&>(WidgetOf(*grid)).SetWhole();
    if (table.label != nullptr) view_.SetNameOf(*table.label, *table.value);
    Put(table.initial, row + 1, Caption, Value - Caption, Qt::AlignTop | Qt::AlignRight);
    Put(table.value, row + 1, Value, ColumnCount - Value, Qt::AlignTop | Qt::AlignLeft);
}

void FieldsBuilder::AddAxes() {
    const Axes& axes = plan_.axes;
    if (axes.grid == nullptr) return;
    auto& table = static_cast<GridView&>(WidgetOf(*axes.grid));
    const auto widgets = [this](const std::vector<pages::Control*>& controls) {
        std::vector<QWidget*> out;
        for (const pages::Control* control : controls) out.push_back(&WidgetOf(*control));
        return out;
    };
    table.SetAxes(widgets(axes.columns), widgets(axes.rows));
    table.SetSurface(plan_.surface);
    auto* captions = new QHBoxLayout;
    for (const pages::Control* caption : {axes.rowCaption, axes.columnCaption}) {
        if (caption != nullptr) captions->addWidget(&WidgetOf(*caption), 1);
    }
    if (plan_.strip != nullptr) {
        std::vector<const pages::Control*> edited(axes.columns.begin(), axes.columns.end());
        edited.insert(edited.end(), axes.rows.begin(), axes.rows.end());
        edited.push_back(axes.grid);
        captions->addWidget(MakeLimits(std::move(edited)));
    }
    grid_->addLayout(captions, next_++, Caption, 1, ColumnCount);
    grid_->addWidget(&table, next_++, Caption, 1, ColumnCount);
}

void FieldsBuilder::AddWide() {
    const pages::Control* caption = nullptr;
    for (const pages::Control* wide : plan_.wide) {
        QWidget& widget = WidgetOf(*wide);
        const bool label = wide->GetKind() == pages::Kind::Label;
        if (wide->GetKind() == pages::Kind::List) widget.setMinimumWidth(CharsWide(widget, ListChars));
        Put(wide, next_++, Caption, ColumnCount);
        if (!label && caption != nullptr) view_.SetNameOf(*caption, *wide);
        caption = label ? wide : nullptr;
    }
}

}  // namespace desktop
