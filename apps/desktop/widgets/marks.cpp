#include "desktop/widgets/marks.h"

namespace desktop {

namespace {

constexpr double DotRadius = 4;
constexpr int Frame = 3;
constexpr int Corner = 8;

void DrawFrame(QPainter& painter, const QRect& inside, const Theme& theme) {
    painter.setPen(QPen(theme.bad, Frame));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(inside).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
}

}  // namespace

void Marks::DrawRefusedCell(QPainter& painter, const QRect& cell, const Theme& theme) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawFrame(painter, cell, theme);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.bad);
    const QPoint at = cell.topLeft();
    painter.drawPolygon(QPolygon({at, at + QPoint(Corner, 0), at + QPoint(0, Corner)}));
    painter.restore();
}

void Marks::Draw(QPainter& painter, const QRect& inside, const Theme& theme) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (refused) {
        DrawFrame(painter, inside, theme);
        QFont bold = painter.font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.drawText(QRect(inside.left() + Frame + 2, inside.top(), Width, inside.height()), Qt::AlignCenter,
                         QStringLiteral("!"));
    } else if (changed) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.warn);
        painter.drawEllipse(QPointF(inside.left() + Width - DotRadius, inside.center().y() + 0.5), DotRadius,
                            DotRadius);
    }
    painter.restore();
}

}  // namespace desktop
