#include "desktop/widgets/figure_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

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

void FigureView::Show(const pages::Control& control, const Look& look) {
    ground_ = look.theme.surface;
    ink_ = dimmed_ ? look.theme.quiet : look.theme.text;
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
    update();
}

void FigureView::SetDimmed(bool dimmed, const Look& look) {
    dimmed_ = dimmed;
    ground_ = look.theme.surface;
    ink_ = dimmed_ ? look.theme.quiet : look.theme.text;
    update();
}

void FigureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), ground_);
    painter.setPen(ink_);
    if (!IsFigure(text_)) {
        QFont fitting = font();
        const int wide = QFontMetrics(fitting).horizontalAdvance(text_);
        if (wide > width() && wide > 0) fitting.setPixelSize(std::max(1, fitting.pixelSize() * width() / wide));
        painter.setFont(fitting);
        painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, text_);
        return;
    }
    const QFontMetrics metrics = fontMetrics();
    const int base = (height() + metrics.capHeight()) / 2;
    int right = width();
    for (auto at = text_.crbegin(); at != text_.crend() && right > 0; ++at) {
        const int advance = metrics.horizontalAdvance(*at);
        const int wide = at->isDigit() ? cell_ : advance;
        right -= wide;
        painter.drawText(right + (wide - advance) / 2, base, QString(*at));
    }
}

}  // namespace desktop
