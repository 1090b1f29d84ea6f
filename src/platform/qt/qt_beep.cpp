#include "platform/qt/qt_beep.h"

#include <QApplication>

namespace sched {

void QtBeep::Sound() {
  QApplication::beep();
}

}  // namespace sched
