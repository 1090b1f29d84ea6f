#include "ui/screen_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRectF>
#include <QScreen>

#include "views/layout.h"

namespace sched {
namespace {

// Centres its window as it is shown: before that the window's layout has not given its size.
class CentreOnShow : public QObject {
 public:
  explicit CentreOnShow(QWidget* window) : QObject(window), window_(window) {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == window_ && event->type() == QEvent::Show) Centre();
    return QObject::eventFilter(watched, event);
  }

 private:
  void Centre() {
    const QRect area = AvailableArea(window_);
    const QSize frame = window_->frameGeometry().size();
    const RectF place = CentreOnArea(frame.width(), frame.height(), ToRectF(area));
    window_->move(ToQRect(place).topLeft());
  }

  QWidget* window_;
};

}  // namespace

void CentreOnScreen(QWidget* window) {
  new CentreOnShow(window);
}

RectF ToRectF(const QRect& rect) {
  return {static_cast<double>(rect.x()), static_cast<double>(rect.y()),
          static_cast<double>(rect.width()), static_cast<double>(rect.height())};
}

QRect ToQRect(const RectF& rect) {
  return QRectF(rect.left, rect.top, rect.width, rect.height).toRect();
}

QRect AvailableArea(const QWidget* widget) {
  const QScreen* screen = widget->screen() ? widget->screen() : QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->availableGeometry() : QRect();
}

}  // namespace sched
