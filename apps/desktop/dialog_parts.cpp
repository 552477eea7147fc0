#include "desktop/dialog_parts.h"

#include <QGridLayout>
#include <QProgressBar>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/widgets/card_grid.h"
#include "desktop/widgets/grid_view.h"

namespace desktop {

namespace {

constexpr double HeadingScale = 1.25;
constexpr double MessageScale = 1.15;
constexpr int MessageChars = 44;  // least width of a message, in characters
constexpr int LimitChars = 12;
constexpr int ListChars = 36;
constexpr double StripPictureLines = 1.6;
constexpr double MessagePictureLines = 3;
constexpr double LivePoints = 20;
constexpr int LiveChars = 4;
constexpr int Spacing = 10;
constexpr int PageMargin = 16;
enum Column { Caption, Initial, Value, Unit, Limits, ColumnCount };

void Scale(QWidget& widget, double factor, bool bold = false) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    widget.setFont(font);
}

void SetLeastChars(QWidget& widget, int characters) {
    widget.setMinimumWidth(widget.fontMetrics().averageCharWidth() * characters);
}

QString Name(const pages::Control& control) {
    return QString::fromStdString(control.Name());
}

// As large as what it holds, and with bars where the screen is too small for it.
class Scroll : public QScrollArea {
  public:
    explicit Scroll(QWidget* inside) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setWidget(inside);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

}  // namespace

DialogBuilder::DialogBuilder(QDialog& dialog, PageView& view, const PagePlan& plan, const Look& look)
    : dialog_(dialog), view_(view), plan_(plan), look_(look) {}

DialogParts DialogBuilder::Build() {
    MakeSpecials();
    view_.BindAll();
    auto* column = new QVBoxLayout(&dialog_);
    column->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    column->setSpacing(Spacing);
    for (const pages::Control* heading : plan_.headings) {
        Scale(WidgetOf(*heading), HeadingScale, true);
        column->addWidget(&WidgetOf(*heading));
    }
    AddTexts(*column);
    if (plan_.liveAbove) AddLive(*column);
    AddMiddle(*column);
    for (const pages::Control* bar : plan_.progress) column->addWidget(&WidgetOf(*bar));
    AddStrip(*column);
    AddButtons(*column);
    return std::move(parts_);
}

// Widgets that a control's kind alone would not give.
void DialogBuilder::MakeSpecials() {
    for (const pages::Control* control : plan_.progress) {
        auto* bar = new QProgressBar(&dialog_);
        bar->setObjectName(Name(*control));
    }
    if (plan_.live.empty()) return;
    live_ = new CardGrid(&dialog_, plan_.liveAbove ? static_cast<int>(plan_.live.size()) : 1, LivePoints, LiveChars);
    for (const LiveFigure& live : plan_.live) {
        live_->Add(Name(*live.label), Name(*live.figure), live.unit == nullptr ? QString() : Name(*live.unit));
    }
    live_->SetLive(true, look_);
}

void DialogBuilder::AddTexts(QVBoxLayout& column) {
    if (plan_.pictures.empty() && plan_.texts.empty()) return;
    auto* line = new QHBoxLayout;
    line->setSpacing(PageMargin);
    for (const pages::Control* picture : plan_.pictures) line->addWidget(&WidgetOf(*picture), 0, Qt::AlignTop);
    auto* words = new QVBoxLayout;
    for (const pages::Control* text : plan_.texts) {
        QWidget& label = WidgetOf(*text);
        if (plan_.message) Scale(label, MessageScale);
        SetLeastChars(label, MessageChars);
        words->addWidget(&label, 1);
    }
    line->addLayout(words, 1);
    column.addLayout(line, plan_.message ? 1 : 0);
}

void DialogBuilder::AddLive(QVBoxLayout& column) {
    if (live_ != nullptr) column.addWidget(live_);
}

void DialogBuilder::AddMiddle(QVBoxLayout& column) {
    auto* middle = new QHBoxLayout;
    middle->setSpacing(2 * Spacing);
    if (QWidget* fields = MakeFields()) middle->addWidget(new Scroll(fields), 1);
    if (!plan_.side.empty() || (live_ != nullptr && !plan_.liveAbove)) {
        auto* side = new QVBoxLayout;
        if (!plan_.liveAbove) AddLive(*side);
        for (const pages::Control* control : plan_.side) side->addWidget(&WidgetOf(*control));
        side->addStretch();
        middle->addLayout(side);
    }
    column.addLayout(middle, 1);
}

// Null when the page has nothing to edit or choose.
QWidget* DialogBuilder::MakeFields() {
    if (plan_.rows.empty() && plan_.wide.empty() && plan_.axes.grid == nullptr) return nullptr;
    auto* inside = new QWidget(&dialog_);
    auto* grid = new QGridLayout(inside);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(PageMargin);
    grid->setVerticalSpacing(Spacing);
    grid->setColumnStretch(Caption, 1);
    int row = 0;
    for (const auto& [head, at] : {std::pair{plan_.heads.initial, Initial}, std::pair{plan_.heads.value, Value}}) {
        if (head != nullptr) grid->addWidget(&WidgetOf(*head), row, at, Qt::AlignRight);
    }
    ++row;
    for (const FieldRow& fields : plan_.rows) AddRow(*grid, row++, fields);
    row = AddAxes(*grid, row);
    row = AddWide(*grid, row);
    grid->setRowStretch(row, plan_.rows.empty() && plan_.axes.grid == nullptr ? 0 : 1);
    return inside;
}

void DialogBuilder::AddRow(QGridLayout& grid, int row, const FieldRow& fields) {
    const auto put = [&](pages::Control* control, Column column) {
        if (control != nullptr) grid.addWidget(&WidgetOf(*control), row, column);
    };
    put(fields.label, Caption);
    put(fields.initial, Initial);
    put(fields.value, Value);
    put(fields.unit, Unit);
    if (fields.label != nullptr) {
        if (auto* caption = qobject_cast<QLabel*>(&WidgetOf(*fields.label)))
            caption->setBuddy(&WidgetOf(*fields.value));
        view_.SetNameOf(*fields.label, *fields.value);
    }
    if (fields.value->GetKind() != pages::Kind::Field) return;
    auto* limits = new QLabel(&dialog_);
    limits->setTextFormat(Qt::PlainText);
    SetLeastChars(*limits, LimitChars);
    QPalette palette = limits->palette();
    palette.setColor(QPalette::WindowText, look_.theme.bad);
    limits->setPalette(palette);
    limits->hide();
    grid.addWidget(limits, row, Limits);
    parts_.limits.emplace_back(fields.value, limits);
}

int DialogBuilder::AddAxes(QGridLayout& grid, int row) {
    const Axes& axes = plan_.axes;
    if (axes.grid == nullptr) return row;
    auto& table = static_cast<GridView&>(WidgetOf(*axes.grid));
    const auto widgets = [this](const std::vector<pages::Control*>& controls) {
        std::vector<QWidget*> out;
        for (const pages::Control* control : controls) out.push_back(&WidgetOf(*control));
        return out;
    };
    table.SetAxes(widgets(axes.columns), widgets(axes.rows));
    table.SetSurface(plan_.surface);
    table.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    auto* captions = new QHBoxLayout;
    if (axes.rowCaption != nullptr) captions->addWidget(&WidgetOf(*axes.rowCaption), 1);
    if (axes.columnCaption != nullptr) captions->addWidget(&WidgetOf(*axes.columnCaption), 1);
    grid.addLayout(captions, row, Caption, 1, ColumnCount);
    grid.addWidget(&table, row + 1, Caption, 1, ColumnCount);
    return row + 2;
}

int DialogBuilder::AddWide(QGridLayout& grid, int row) {
    const pages::Control* caption = nullptr;
    for (const pages::Control* wide : plan_.wide) {
        QWidget& widget = WidgetOf(*wide);
        const bool label = wide->GetKind() == pages::Kind::Label;
        if (wide->GetKind() == pages::Kind::List) SetLeastChars(widget, ListChars);
        grid.addWidget(&widget, row++, Caption, 1, ColumnCount);
        if (!label && caption != nullptr) view_.SetNameOf(*caption, *wide);
        caption = label ? wide : nullptr;
    }
    return row;
}

void DialogBuilder::AddStrip(QVBoxLayout& column) {
    if (plan_.strip == nullptr) return;
    auto* strip = new QHBoxLayout;
    parts_.stripPicture = new PictureView(&dialog_, plan_.message ? MessagePictureLines : StripPictureLines);
    strip->addWidget(parts_.stripPicture, 0, Qt::AlignTop);
    QWidget& text = WidgetOf(*plan_.strip);
    if (plan_.message) Scale(text, MessageScale);
    text.setMinimumHeight(parts_.stripPicture->sizeHint().height());
    SetLeastChars(text, MessageChars);
    strip->addWidget(&text, 1);
    column.addLayout(strip, plan_.message ? 1 : 0);
}

void DialogBuilder::AddButtons(QVBoxLayout& column) {
    if (plan_.buttons.empty()) return;
    auto* line = new QHBoxLayout;
    line->setSpacing(Spacing);
    line->addStretch();
    for (const pages::Control* button : plan_.buttons) {
        QWidget& widget = WidgetOf(*button);
        widget.setMinimumHeight(widget.fontMetrics().height() * 2);
        line->addWidget(&widget);
    }
    column.addSpacing(Spacing);
    column.addLayout(line);
}

}  // namespace desktop
