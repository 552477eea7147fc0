#include "desktop/widgets/card_grid.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr int Columns = 2;
constexpr int Gap = 6;
constexpr int BarWidth = 5;
constexpr int Padding = 8;
constexpr int FigureCells = 6;  // "R 3300": a letter, a blank and four digits
constexpr double LeastFigurePoints = 28;
// Height of the place of a figure over the size of its type: digits have no descenders.
constexpr double HeightOverSize = 1.05;

int LeastFigure(const QWidget& widget) {
    constexpr double PointsAnInch = 72;
    return static_cast<int>(LeastFigurePoints * widget.logicalDpiY() / PointsAnInch);
}

QLabel* SmallLabel(QWidget* parent, const QString& name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

}  // namespace

Card::Card(QWidget* parent, const QString& name, const QString& figure, const QString& unit)
    : QFrame(parent), name_(SmallLabel(this, name)), figure_(new FigureView(this)), unit_(SmallLabel(this, unit)) {
    figure_->setObjectName(figure);
    unit_->setForegroundRole(QPalette::PlaceholderText);
    unit_->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

int Card::UnitWidth() const {
    return unit_->fontMetrics().horizontalAdvance(unit_->text());
}

QSize Card::LeastSize(int unitWidth) const {
    QFont font = figure_->font();
    font.setPixelSize(LeastFigure(*this));
    const int wide = BarWidth + 3 * Padding + FigureView::WidthOf(font, FigureCells) + unitWidth;
    const int high = name_->fontMetrics().height() + Padding + static_cast<int>(font.pixelSize() * HeightOverSize);
    return {wide, high};
}

int Card::LargestFigure(QSize size, int unitWidth) const {
    constexpr int Trial = 100;
    QFont font = figure_->font();
    font.setPixelSize(Trial);
    const int room = size.width() - BarWidth - 3 * Padding - unitWidth;
    const int byWidth = room * Trial / std::max(1, FigureView::WidthOf(font, FigureCells));
    const int byHeight = static_cast<int>((size.height() - name_->fontMetrics().height() - Padding) / HeightOverSize);
    return std::max(LeastFigure(*this), std::min(byWidth, byHeight));
}

void Card::Arrange(int unitWidth) {
    const int left = BarWidth + Padding;
    const int nameHeight = name_->fontMetrics().height();
    name_->setGeometry(left, Padding / 2, width() - left - Padding, nameHeight);
    const int top = Padding / 2 + nameHeight;
    const int high = height() - top - Padding / 2;
    const int figureWidth = width() - left - 2 * Padding - unitWidth;
    figure_->setGeometry(left, top, figureWidth, high);
    const QFontMetrics big(figure_->font());
    const int base = top + (high + big.capHeight()) / 2;
    const int unitTop = base - unit_->fontMetrics().ascent();
    unit_->setGeometry(left + figureWidth + Padding, unitTop, unitWidth, unit_->fontMetrics().height());
}

void Card::SetLive(bool live, const Look& look) {
    ground_ = look.theme.surface;
    line_ = look.theme.line;
    bar_ = live ? look.theme.accent : QColor();
    figure_->SetDimmed(!live, look);
    update();
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line_);
    painter.setBrush(ground_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    if (!bar_.isValid()) return;
    painter.fillRect(QRect(1, 3, BarWidth - 1, height() - 6), bar_);
}

// The whole card answers for its figure.
void Card::mouseDoubleClickEvent(QMouseEvent* event) {
    QMouseEvent forFigure(event->type(), figure_->rect().center(), event->globalPosition(), event->button(),
                          event->buttons(), event->modifiers());
    QCoreApplication::sendEvent(figure_, &forFigure);
}

Card& CardGrid::Add(const QString& name, const QString& figure, const QString& unit) {
    cards_.push_back(new Card(this, name, figure, unit));
    return *cards_.back();
}

std::vector<Card*> CardGrid::Shown() const {
    std::vector<Card*> shown;
    std::copy_if(cards_.begin(), cards_.end(), std::back_inserter(shown),
                 [](const Card* card) { return !card->Figure().isHidden(); });
    return shown;
}

int CardGrid::UnitWidth() const {
    int widest = 0;
    for (const Card* card : cards_) widest = std::max(widest, card->UnitWidth());
    return widest;
}

void CardGrid::Arrange() {
    const std::vector<Card*> shown = Shown();
    for (Card* card : cards_) card->setVisible(!card->Figure().isHidden());
    if (shown.empty()) return;
    const int rows = (static_cast<int>(shown.size()) + Columns - 1) / Columns;
    const QSize size((width() - (Columns - 1) * Gap) / Columns, (height() - (rows - 1) * Gap) / rows);
    const int unitWidth = UnitWidth();
    const int figure = shown.front()->LargestFigure(size, unitWidth);
    for (int i = 0; i < static_cast<int>(shown.size()); ++i) {
        Card& card = *shown[static_cast<std::size_t>(i)];
        card.setGeometry((i % Columns) * (size.width() + Gap), (i / Columns) * (size.height() + Gap), size.width(),
                         size.height());
        card.Figure().SetFigureSize(figure);
        card.Arrange(unitWidth);
    }
    updateGeometry();
}

void CardGrid::SetLive(bool live, const Look& look) {
    for (Card* card : cards_) card->SetLive(live, look);
}

QSize CardGrid::minimumSizeHint() const {
    const std::vector<Card*> shown = Shown();
    if (shown.empty()) return {};
    const int rows = (static_cast<int>(shown.size()) + Columns - 1) / Columns;
    const QSize card = shown.front()->LeastSize(UnitWidth());
    return {Columns * card.width() + (Columns - 1) * Gap, rows * card.height() + (rows - 1) * Gap};
}

QSize CardGrid::sizeHint() const {
    return minimumSizeHint();
}

void CardGrid::resizeEvent(QResizeEvent*) {
    Arrange();
}

}  // namespace desktop
