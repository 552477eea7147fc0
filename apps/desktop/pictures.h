#pragma once

#include <QIcon>
#include <QPainter>
#include <QString>
#include <string_view>

namespace desktop {

// The pictures that ship in the program, by file name without extension. A name without picture draws nothing.
void DrawPicture(QPainter& painter, const QRectF& into, const QString& name);
// A picture for buttons and menus, sharp at every size; pale while disabled.
QIcon PictureIcon(const QString& name);

// The picture of a control with cells, for example "commut_2" for cell 2 of "Commu"; empty for none.
QString PictureOf(std::string_view control, int cell);

}  // namespace desktop
