#include "desktop/dialog_parts.h"

#include <QEvent>
#include <QGridLayout>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/widgets/caption_label.h"
#include "desktop/widgets/card_grid.h"
#include "desktop/widgets/curve_view.h"
#include "desktop/widgets/gauge_view.h"

namespace desktop {

namespace {

constexpr double HeadingScale = 1.25;
constexpr int HeadingChars = 50;
constexpr int FewHeadingChars = 16;
constexpr double MessageScale = 1.15;
constexpr int MessageChars = 44;  // least width of a message, in characters
constexpr double StripPictureLines = 1.6;
constexpr double MessagePictureLines = 3;
constexpr double LivePoints = 20;
constexpr int LiveChars = 5;
// Of figures in a line.
constexpr double FewPoints = 18;
constexpr int FewChars = 4;
constexpr int Spacing = 10;
constexpr int PageMargin = 14;
// The least that is shown of what scrolls.
constexpr int ScrollChars = 80;
constexpr int ScrollLines = 6;

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

// As large as what it holds, and with bars where the screen is too small for it. A bar that comes takes no room from
// what is shown.
class Scroll : public QScrollArea {
  public:
    explicit Scroll(QWidget* inside) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setWidget(inside);
        QSizePolicy folds(QSizePolicy::Expanding, QSizePolicy::Expanding);
        folds.setHeightForWidth(true);
        setSizePolicy(folds);
    }
    QSize sizeHint() const override {
        const int wide = widget()->sizeHint().width() + Bar();
        return {wide, heightForWidth(wide)};
    }
    QSize minimumSizeHint() const override {
        const QSize inside = widget()->minimumSizeHint();
        return {std::min(inside.width() + Bar(), fontMetrics().averageCharWidth() * ScrollChars),
                std::min(inside.height(), fontMetrics().height() * ScrollLines)};
    }
    int heightForWidth(int width) const override {
        const QLayout& inside = *widget()->layout();
        return inside.hasHeightForWidth() ? inside.totalHeightForWidth(width - Bar()) : widget()->sizeHint().height();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool taken = QScrollArea::eventFilter(watched, event);
        if (event->type() == QEvent::LayoutRequest) updateGeometry();
        return taken;
    }

  private:
    int Bar() const { return verticalScrollBar()->sizeHint().width(); }
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
    auto* top = new QHBoxLayout;
    top->setSpacing(2 * Spacing);
    auto* main = new QVBoxLayout;
    main->setSpacing(Spacing);
    AddHeading(*main);
    AddTexts(*main);
    if (plan_.liveAbove && live_ != nullptr) main->addWidget(live_);
    AddTools(*main);
    AddFields(*main);
    top->addLayout(main, 1);
    AddSide(*top);
    column->addLayout(top, 1);
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
    if (!plan_.live.empty()) MakeLive();
    if (!plan_.gauge.empty()) MakeGauge();
}

void DialogBuilder::MakeLive() {
    live_ = new CardGrid(&dialog_, plan_.liveAbove ? static_cast<int>(plan_.live.size()) : 1,
                         plan_.liveAbove ? FewPoints : LivePoints, plan_.liveAbove ? FewChars : LiveChars);
    for (const LiveFigure& live : plan_.live) {
        live_->Add(Name(*live.label), Name(*live.figure), live.unit == nullptr ? QString() : Name(*live.unit));
    }
    live_->SetLive(true, look_);
}

// The chart of a gauge is a curve, its label of digits a bar.
void DialogBuilder::MakeGauge() {
    gauge_ = new GaugeView(&dialog_);
    for (const pages::Control* control : plan_.gauge) {
        QWidget* part = nullptr;
        if (control->GetKind() == pages::Kind::Chart) part = new CurveView(gauge_);
        if (control->GetKind() == pages::Kind::Label && control->Name().rfind("Barra", 0) == 0)
            part = new QProgressBar(gauge_);
        if (part != nullptr) part->setObjectName(Name(*control));
    }
}

void DialogBuilder::FillGauge() {
    CurveView* curve = nullptr;
    std::vector<QWidget*> lamps;
    std::vector<QWidget*> below;
    for (const pages::Control* control : plan_.gauge) {
        QWidget& widget = WidgetOf(*control);
        if (control->GetKind() == pages::Kind::Chart) {
            curve = static_cast<CurveView*>(&widget);
        } else if (control->GetKind() == pages::Kind::Lamp) {
            lamps.push_back(&widget);
        } else {
            below.push_back(&widget);
        }
    }
    if (curve != nullptr) gauge_->SetParts(*curve, std::move(lamps), std::move(below));
}

void DialogBuilder::AddHeading(QVBoxLayout& column) {
    auto* line = new QHBoxLayout;
    for (const pages::Control* heading : plan_.headings) {
        Scale(WidgetOf(*heading), HeadingScale, true);
        static_cast<CaptionLabel&>(WidgetOf(*heading)).SetRoom(HeadingChars, FewHeadingChars);
        line->addWidget(&WidgetOf(*heading), 1);
    }
    if (plan_.selector != nullptr) {
        line->addWidget(&WidgetOf(*plan_.selector));
        for (const pages::Control* heading : plan_.headings) view_.SetNameOf(*heading, *plan_.selector);
    }
    if (line->count() > 0) {
        column.addLayout(line);
    } else {
        delete line;
    }
}

// In pairs, a button and its twin for the initial values; those without one beside them.
void DialogBuilder::AddTools(QVBoxLayout& column) {
    constexpr int Pair = 2;
    if (plan_.pairs.empty() && plan_.tools.empty()) return;
    auto* line = new QHBoxLayout;
    line->setSpacing(Spacing);
    auto* pairs = new QGridLayout;
    pairs->setHorizontalSpacing(Spacing);
    pairs->setVerticalSpacing(Spacing / 2);
    int place = 0;
    for (const pages::Control* tool : plan_.pairs) {
        pairs->addWidget(&WidgetOf(*tool), place / Pair, place % Pair);
        ++place;
    }
    line->addLayout(pairs);
    for (const pages::Control* tool : plan_.tools) line->addWidget(&WidgetOf(*tool), 0, Qt::AlignTop);
    line->addStretch(1);
    column.addLayout(line);
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

void DialogBuilder::AddFields(QVBoxLayout& column) {
    FieldsBuilder fields(dialog_, view_, plan_, look_);
    QWidget* inside = fields.Build();
    parts_.limits = fields.TakeLimits();
    if (inside != nullptr) {
        column.addWidget(new Scroll(inside), 1);
    } else if (!plan_.message) {
        column.addStretch(1);
    }
}

void DialogBuilder::AddSide(QHBoxLayout& line) {
    const bool live = live_ != nullptr && !plan_.liveAbove;
    if (plan_.side.empty() && gauge_ == nullptr && !live) return;
    auto* side = new QVBoxLayout;
    if (gauge_ != nullptr) {
        FillGauge();
        side->addWidget(gauge_);
    }
    if (live) side->addWidget(live_);
    for (const pages::Control* control : plan_.side) side->addWidget(&WidgetOf(*control));
    side->addStretch();
    line.addLayout(side);
}

void DialogBuilder::AddStrip(QVBoxLayout& column) {
    if (plan_.strip == nullptr) return;
    auto* strip = new QHBoxLayout;
    parts_.stripPicture = new PictureView(&dialog_, plan_.message ? MessagePictureLines : StripPictureLines);
    parts_.stripPicture->setObjectName(Name(*plan_.strip) + QStringLiteral("Figura"));
    strip->addWidget(parts_.stripPicture, 0, Qt::AlignTop);
    QWidget& text = WidgetOf(*plan_.strip);
    if (plan_.message) Scale(text, MessageScale);
    text.setMinimumHeight(parts_.stripPicture->sizeHint().height());
    SetLeastChars(text, MessageChars);
    strip->addWidget(&text, 1);
    column.addLayout(strip);
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
    column.addLayout(line);
}

}  // namespace desktop
