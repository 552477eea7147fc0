#include "desktop/grafici_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <string>

#include "desktop/widgets/card_grid.h"
#include "desktop/widgets/chart_view.h"
#include "desktop/widgets/lamp_view.h"
#include "desktop/widgets/picture_view.h"

namespace desktop {

namespace {

constexpr int Margin = 8;
constexpr double SwitchLines = 4.5;
constexpr double CentreLampLines = 2.2;
constexpr double RowLampLines = 1.5;
constexpr double WaitingPictureLines = 4;
constexpr int CardColumns = 2;
constexpr double FigurePoints = 28;  // readable at two metres
constexpr int FigureChars = 6;       // "R 3300": a letter, a blank and four digits
constexpr int CardStretch = 5;
constexpr int MiddleStretch = 4;

QString Indexed(const char* array, int index) {
    return QString::fromLatin1(array) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

QLabel* WrappedLabel(QWidget* parent, const char* name, double scale, bool bold = false) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QLabel* Caption(QWidget* parent) {
    QLabel* label = WrappedLabel(parent, "", 1);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

// A sheet with a band at its left edge, wide when something is wrong.
class Sheet : public QWidget {
  public:
    explicit Sheet(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_StyledBackground); }
    void SetBand(const QColor& ground, const QColor& band, int width) {
        ground_ = ground;
        band_ = band;
        width_ = width;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), ground_);
        painter.fillRect(QRect(0, 0, width_, height()), band_);
    }

  private:
    QColor ground_;
    QColor band_;
    int width_ = 0;
};

}  // namespace

LinkLook LookOf(const eculink::Link& link) {
    if (!link.grafici.Attesa.Visible()) return LinkLook::Live;
    return link.state.heard ? LinkLook::Lost : LinkLook::Waiting;
}

QString PictureOf(LinkLook look) {
    constexpr std::array<const char*, 3> Names{"waiting", "live", "lost"};
    return QString::fromLatin1(Names[static_cast<std::size_t>(look)]);
}

GraficiView::GraficiView(eculink::Link& link, Hands& hands, const Look& look)
    : link_(link),
      look_(look),
      view_(link.grafici, *this, hands, look),
      cards_(new CardGrid(this, CardColumns, FigurePoints, FigureChars)) {
    setObjectName(QStringLiteral("Grafici"));
    BuildCards();
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(Margin, Margin, Margin, Margin);
    line->setSpacing(Margin);
    line->addWidget(cards_, CardStretch);
    line->addWidget(BuildMiddle(), MiddleStretch);
    line->addWidget(BuildSwitch());
    view_.BindAll();
}

void GraficiView::BuildCards() {
    for (int channel = 0; channel < eculink::InstrumentCount; ++channel) {
        cards_->Add(Indexed("LabMot", channel), Indexed("DatiMot", channel), Indexed("UmMot", channel));
        view_.SetNameOf(link_.grafici.LabMot[channel], link_.grafici.DatiMot[channel]);
    }
}

QWidget* GraficiView::BuildMiddle() {
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    middle_ = new QStackedLayout;
    // A sheet of its own below the chart: whether the chart itself shows is the page's affair.
    auto* sheet = new QWidget(middle);
    auto* chart = new ChartView(sheet);
    chart->setObjectName(QStringLiteral("GraficoC"));
    auto* whole = new QVBoxLayout(sheet);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(chart);
    middle_->addWidget(sheet);
    middle_->addWidget(BuildWaiting());
    column->addLayout(middle_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (int view = 0; view < link_.grafici.Visualizzo.Size(); ++view) {
        auto* button = new QPushButton(middle);
        button->setObjectName(Indexed("Visualizzo", view));
        buttons->addWidget(button);
    }
    column->addLayout(buttons);
    return middle;
}

QWidget* GraficiView::BuildWaiting() {
    constexpr double Title = 1.45;
    constexpr double Sentence = 1.2;
    auto* sheet = new Sheet(this);
    waiting_ = sheet;
    auto* column = new QVBoxLayout(sheet);
    column->setContentsMargins(4 * Margin, Margin, 2 * Margin, Margin);
    column->setSpacing(Margin);
    column->addStretch();
    waitingPicture_ = new PictureView(sheet, WaitingPictureLines);
    column->addWidget(waitingPicture_, 0, Qt::AlignLeft);
    lost_ = WrappedLabel(sheet, "", Title, true);
    column->addWidget(lost_);
    column->addWidget(WrappedLabel(sheet, "Attesa", Title, true));
    column->addWidget(WrappedLabel(sheet, "AttesaCausa", Sentence, true));
    QLabel* evidence = WrappedLabel(sheet, "AttesaValore", 1);
    evidence->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(evidence);
    column->addWidget(WrappedLabel(sheet, "AttesaRimedio", Sentence));
    column->addStretch();
    return sheet;
}

QWidget* GraficiView::BuildSwitch() {
    auto* side = new QWidget(this);
    switch_ = side;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, Margin, 0, 0);
    auto* picture = new PictureView(side, SwitchLines);
    picture->setObjectName(QStringLiteral("Commu"));
    column->addWidget(picture, 0, Qt::AlignHCenter);
    switchWords_ = WrappedLabel(side, "CommuTesto", 1.1, true);
    switchWords_->setAlignment(Qt::AlignHCenter);
    column->addWidget(switchWords_);
    column->addSpacing(2 * Margin);
    auto* centre = new LampView(side, CentreLampLines);
    centre->setObjectName(QStringLiteral("LedC"));
    column->addWidget(centre, 0, Qt::AlignHCenter);
    centreCaption_ = Caption(side);
    column->addWidget(centreCaption_);
    column->addStretch();
    rowCaption_ = Caption(side);
    column->addWidget(rowCaption_);
    column->addWidget(BuildLampRow(side));
    return side;
}

// At the bottom, where it stays in sight below a page that is as wide as the window.
QWidget* GraficiView::BuildLampRow(QWidget* parent) {
    lamps_ = new QWidget(parent);
    auto* row = new QHBoxLayout(lamps_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    for (int lamp = 0; lamp < eculink::LedCount; ++lamp) {
        auto* view = new LampView(lamps_, RowLampLines);
        view->setObjectName(Indexed("Led", lamp));
        row->addWidget(view);
    }
    row->addStretch();
    return lamps_;
}

QRect GraficiView::SwitchColumn() const {
    return switch_->geometry();
}

QRect GraficiView::LampRow() const {
    return {lamps_->mapTo(this, QPoint(0, 0)), lamps_->size()};
}

// A switch that is moved moves nothing beside it, least of all under a page that stands there.
void GraficiView::KeepSwitchWide() {
    constexpr int Positions = 4;
    int widest = 0;
    for (int position = 0; position < Positions; ++position) {
        const QString words = look_.Text("COMMUT." + std::to_string(position), "GRAFICI");
        widest = std::max(widest, switchWords_->fontMetrics().horizontalAdvance(words));
    }
    switchWords_->setMinimumWidth(widest);
}

// The lamps have no caption of their own in the page: the captions beside them name them.
void GraficiView::NameLamps() {
    KeepSwitchWide();
    const QString centre = look_.Text("LEDC.0", "GRAFICI");
    const QString row = look_.Text("LED.0", "GRAFICI");
    centreCaption_->setText(centre);
    rowCaption_->setText(row);
    view_.WidgetOf(link_.grafici.LedC)->setAccessibleName(centre);
    for (const auto& lamp : link_.grafici.Led) {
        view_.WidgetOf(*lamp)->setAccessibleName(row + QStringLiteral(" ") + QString::fromStdString(lamp->Name()));
    }
    view_.WidgetOf(link_.grafici.Commu)->setAccessibleName(look_.Text("COMMUT", "CANALI"));
    lost_->setText(look_.Text("PERSA.0", "STATO"));
}

void GraficiView::Sync() {
    const LinkLook now = LookOf(link_);
    const bool first = !shown_ && link_.grafici.IsOpen();
    if (first || now != seen_) ShowLink(now);
    if (first) NameLamps();
    shown_ = shown_ || first;
    view_.Sync();
}

void GraficiView::ShowLink(LinkLook now) {
    constexpr int Band = 6;
    seen_ = now;
    const bool live = now == LinkLook::Live;
    const bool lost = now == LinkLook::Lost;
    middle_->setCurrentIndex(live ? 0 : 1);
    waitingPicture_->SetName(PictureOf(now));
    lost_->setVisible(lost);
    QPalette palette = lost_->palette();
    palette.setColor(QPalette::WindowText, look_.theme.bad);
    lost_->setPalette(palette);
    static_cast<Sheet*>(waiting_)->SetBand(look_.theme.surface, lost ? look_.theme.bad : look_.theme.line,
                                           lost ? 2 * Band : Band);
    cards_->SetLive(live, look_);
    switch_->setEnabled(live);
}

}  // namespace desktop
