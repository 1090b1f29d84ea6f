#include "platform/qt/qt_timer.h"

#include <utility>

namespace sched {

QtTimer::QtTimer() {
  QObject::connect(&timer_, &QTimer::timeout, [this] {
    if (routine_) routine_();
  });
}

void QtTimer::OnTick(std::function<void()> routine) {
  routine_ = std::move(routine);
}

void QtTimer::SetInterval(int milliseconds) {
  timer_.setInterval(milliseconds);
}

void QtTimer::SetEnabled(bool enabled) {
  if (enabled) {
    timer_.start();
  } else {
    timer_.stop();
  }
}

}  // namespace sched
