#include "desktop/widgets/figure_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr int CellMargin = 3;  // what round digits overshoot

bool IsFigure(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

int CellWidth(const QFontMetrics& metrics) {
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    }
    return widest;
}

}  // namespace

FigureView::FigureView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    setFont(bold);
    cell_ = CellWidth(fontMetrics());
}

int FigureView::WidthOf(const QFont& font, int digits) {
    return digits * CellWidth(QFontMetrics(font));
}

void FigureView::SetInk(const Look& look) {
    const QColor ink = dimmed_ ? look.theme.quiet : look.theme.text;
    if (ink == ink_ && ground_ == look.theme.surface) return;
    ink_ = ink;
    ground_ = look.theme.surface;
    cells_.clear();
    update();
}

void FigureView::Show(const pages::Control& control, const Look& look) {
    SetInk(look);
    QString text = Words(control.Text()).simplified();
    if (text == text_) return;
    text_ = std::move(text);
    update();
}

void FigureView::SetFigureSize(int pixels) {
    if (FigureSize() == pixels) return;
    QFont sized = font();
    sized.setPixelSize(pixels);
    setFont(sized);
    cell_ = CellWidth(fontMetrics());
    cells_.clear();
    update();
}

void FigureView::SetDimmed(bool dimmed, const Look& look) {
    dimmed_ = dimmed;
    SetInk(look);
}

void FigureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), ground_);
    if (IsFigure(text_)) {
        DrawFigure(painter);
    } else {
        DrawWord(painter);
    }
}

void FigureView::DrawWord(QPainter& painter) {
    QFont fitting = font();
    const int wide = QFontMetrics(fitting).horizontalAdvance(text_);
    if (wide > width() && wide > 0) fitting.setPixelSize(std::max(1, fitting.pixelSize() * width() / wide));
    painter.setFont(fitting);
    painter.setPen(ink_);
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, text_);
}

void FigureView::DrawFigure(QPainter& painter) {
    int right = width();
    for (auto at = text_.crbegin(); at != text_.crend() && right > 0; ++at) {
        const QPixmap& cell = CellOf(*at);
        const QSize size = (QSizeF(cell.size()) / cell.devicePixelRatio()).toSize();
        right -= size.width();
        painter.drawPixmap(right, (height() - size.height()) / 2, cell);
    }
}

// The character on its ground, in a cell as high as a capital letter and, for a digit, as wide as any digit.
const QPixmap& FigureView::CellOf(QChar character) {
    QPixmap& cell = cells_[character];
    const qreal ratio = devicePixelRatioF();
    if (!cell.isNull() && cell.devicePixelRatio() == ratio) return cell;
    const QFontMetrics metrics = fontMetrics();
    const int advance = metrics.horizontalAdvance(character);
    const QSize size(character.isDigit() ? cell_ : advance, metrics.capHeight() + 2 * CellMargin);
    cell = QPixmap((QSizeF(size) * ratio).toSize());
    cell.setDevicePixelRatio(ratio);
    cell.fill(ground_);
    QPainter painter(&cell);
    painter.setFont(font());
    painter.setPen(ink_);
    painter.drawText((size.width() - advance) / 2, size.height() - CellMargin, QString(character));
    return cell;
}

}  // namespace desktop
