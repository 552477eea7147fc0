#include "platform/qt/qt_sound.h"

#include <QApplication>

namespace platform::qt {

void QtSound::Beep() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr) QApplication::beep();
}

}  // namespace platform::qt
