#include "desktop/widgets/marks.h"

namespace desktop {

namespace {

constexpr double DotRadius = 4;
constexpr int Frame = 3;
constexpr int Corner = 9;  // of a cell

void DrawFrame(QPainter& painter, const QRect& inside, const QPen& pen) {
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(inside).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
}

// Filled at `corner`, `side` being 1 where the cell lies right of it and -1 where left; its edge stands out from a
// chosen cell too.
void DrawCorner(QPainter& painter, const QPoint& corner, int side, const QColor& colour, const Theme& theme) {
    const QPoint across = corner + QPoint(side * Corner, 0);
    const QPoint below = corner + QPoint(0, Corner);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygon({corner, across, below}));
    painter.setPen(QPen(theme.surface, 1));
    painter.drawLine(across, below);
}

}  // namespace

void CellMarks::Draw(QPainter& painter, const QRect& cell, const Theme& theme) const {
    if (!engine && !changed && !refused) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect inside = cell.adjusted(0, 0, -1, -1);  // the lines of the table stay
    if (engine) DrawFrame(painter, inside, QPen(theme.accent, Frame));
    if (refused) {
        QPen pen(theme.bad, Frame, Qt::SolidLine, Qt::FlatCap);
        if (engine) pen.setDashPattern({2, 2});  // both frames are seen
        DrawFrame(painter, inside, pen);
        DrawCorner(painter, inside.topRight() + QPoint(1, 0), -1, theme.bad, theme);
    }
    if (changed) DrawCorner(painter, inside.topLeft(), 1, theme.warn, theme);
    painter.restore();
}

void Marks::Draw(QPainter& painter, const QRect& inside, const Theme& theme) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (refused) {
        DrawFrame(painter, inside, QPen(theme.bad, Frame));
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
