#include "desktop/widgets/card_grid.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <limits>
#include <numeric>

namespace desktop {

namespace {

constexpr int Gap = 6;
constexpr int BarWidth = 5;
constexpr int Padding = 8;
// Height of the place of a figure over the size of its type: digits have no descenders.
constexpr double SmallestPoints = 18;
constexpr double HeightOverSize = 1.05;

QLabel* SmallLabel(QWidget* parent, const QString& name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

}  // namespace

Card::Card(CardGrid& grid, const QString& name, const QString& figure, const QString& unit)
    : QFrame(&grid),
      grid_(grid),
      name_(SmallLabel(this, name)),
      figure_(new FigureView(this)),
      unit_(SmallLabel(this, unit)) {
    figure_->setObjectName(figure);
    figure_->installEventFilter(this);
    unit_->setForegroundRole(QPalette::PlaceholderText);
    unit_->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

int Card::Pixels(double points) const {
    constexpr double PointsAnInch = 72;
    return static_cast<int>(points * logicalDpiY() / PointsAnInch);
}

// A figure that comes or goes moves all cards.
bool Card::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) grid_.Arrange();
    return false;
}

// So does a unit of another width.
bool Card::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) grid_.Arrange();
    return QFrame::event(event);
}

int Card::UnitWidth() const {
    return unit_->sizeHint().width();
}

QSize Card::SizeFor(double points, int unitWidth) const {
    QFont font = figure_->font();
    font.setPixelSize(Pixels(points));
    const int wide = BarWidth + 3 * Padding + FigureView::WidthOf(font, grid_.Characters()) + unitWidth;
    const int high = name_->fontMetrics().height() + Padding + static_cast<int>(font.pixelSize() * HeightOverSize);
    return {std::max(wide, BarWidth + 3 * Padding + name_->sizeHint().width()), high};
}

int Card::LargestFigure(QSize size, int unitWidth) const {
    constexpr int Trial = 100;
    QFont font = figure_->font();
    font.setPixelSize(Trial);
    const int room = size.width() - BarWidth - 3 * Padding - unitWidth;
    const int byWidth = room * Trial / std::max(1, FigureView::WidthOf(font, grid_.Characters()));
    const int byHeight = static_cast<int>((size.height() - name_->fontMetrics().height() - Padding) / HeightOverSize);
    return std::max(Pixels(SmallestPoints), std::min(byWidth, byHeight));
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
    cards_.push_back(new Card(*this, name, figure, unit));
    return *cards_.back();
}

std::vector<Card*> CardGrid::Shown() const {
    std::vector<Card*> shown;
    std::copy_if(cards_.begin(), cards_.end(), std::back_inserter(shown),
                 [](const Card* card) { return !card->Figure().isHidden(); });
    return shown;
}

// Figures that stand above one another end at one edge: their units have room for the widest of them.
int CardGrid::UnitWidth(const Card& card) const {
    if (columns_ >= static_cast<int>(cards_.size())) return card.UnitWidth();
    int widest = 0;
    for (const Card* other : cards_) widest = std::max(widest, other->UnitWidth());
    return widest;
}

int CardGrid::Rows(std::size_t cards) const {
    return (static_cast<int>(cards) + columns_ - 1) / columns_;
}

// What each column needs at least: a name may be longer than its figure.
std::vector<int> CardGrid::WidthsFor(double points, const std::vector<Card*>& shown) const {
    std::vector<int> widths(static_cast<std::size_t>(columns_), 0);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        int& width = widths[i % widths.size()];
        width = std::max(width, shown[i]->SizeFor(points, UnitWidth(*shown[i])).width());
    }
    return widths;
}

// Room that is left over goes to all columns alike.
void CardGrid::Arrange() {
    const std::vector<Card*> shown = Shown();
    for (Card* card : cards_) card->setVisible(!card->Figure().isHidden());
    if (shown.empty()) return;
    std::vector<int> widths = WidthsFor(points_, shown);
    const int spare = width() - (columns_ - 1) * Gap - std::accumulate(widths.begin(), widths.end(), 0);
    for (int& wide : widths) wide += std::max(0, spare / columns_);
    const int rows = Rows(shown.size());
    const int high = (height() - (rows - 1) * Gap) / rows;
    int figure = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const QSize place(widths[i % widths.size()], high);
        figure = std::min(figure, shown[i]->LargestFigure(place, UnitWidth(*shown[i])));
    }
    int left = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const std::size_t column = i % widths.size();
        if (column == 0) left = 0;
        const int row = static_cast<int>(i / widths.size());
        shown[i]->setGeometry(left, row * (high + Gap), widths[column], high);
        shown[i]->Figure().SetFigureSize(figure);
        shown[i]->Arrange(UnitWidth(*shown[i]));
        left += widths[column] + Gap;
    }
    updateGeometry();
}

void CardGrid::SetLive(bool live, const Look& look) {
    for (Card* card : cards_) card->SetLive(live, look);
}

QSize CardGrid::SizeFor(double points) const {
    const std::vector<Card*> shown = Shown();
    if (shown.empty()) return {};
    const std::vector<int> widths = WidthsFor(points, shown);
    const int rows = Rows(shown.size());
    return {std::accumulate(widths.begin(), widths.end(), 0) + (columns_ - 1) * Gap,
            rows * shown.front()->SizeFor(points, 0).height() + (rows - 1) * Gap};
}

QSize CardGrid::minimumSizeHint() const {
    return {SizeFor(points_).width(), SizeFor(SmallestPoints).height()};
}

QSize CardGrid::sizeHint() const {
    return SizeFor(points_);
}

void CardGrid::resizeEvent(QResizeEvent*) {
    Arrange();
}

void CardGrid::showEvent(QShowEvent*) {
    Arrange();
}

}  // namespace desktop
