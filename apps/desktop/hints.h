#pragma once

#include <QWidget>

namespace desktop {

// What the status bar says of a widget while the pointer stands on it; it changes and goes under the pointer too.
void SetHint(QWidget& widget, const QString& hint);
// For a widget that is being hidden: what was said of it under the pointer is taken away.
void DropHint(QWidget& widget);

}  // namespace desktop
