#include "ui/screen_place.h"

#include <QEvent>
#include <QGuiApplication>
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
    const RectF place =
        CentreOnArea(frame.width(), frame.height(),
                     {static_cast<double>(area.x()), static_cast<double>(area.y()),
                      static_cast<double>(area.width()), static_cast<double>(area.height())});
    window_->move(static_cast<int>(place.left), static_cast<int>(place.top));
  }

  QWidget* window_;
};

}  // namespace

void CentreOnScreen(QWidget* window) {
  new CentreOnShow(window);
}

QRect AvailableArea(const QWidget* widget) {
  const QScreen* screen = widget->screen() ? widget->screen() : QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->availableGeometry() : QRect();
}

}  // namespace sched
