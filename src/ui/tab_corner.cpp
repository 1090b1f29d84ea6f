#include "ui/tab_corner.h"

#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "views/layout.h"

namespace sched {
namespace {

constexpr int kBarGap = 8;  // between the last tab button and the bar

}  // namespace

TabCorner::TabCorner(QWidget* bar, QLabel* label, std::function<double()> twipsPerPixel,
                     QWidget* parent)
    : QWidget(parent), bar_(bar), label_(label), twipsPerPixel_(std::move(twipsPerPixel)) {
  bar_->setParent(this);
  label_->setParent(this);
}

QSize TabCorner::minimumSizeHint() const {
  return {0, std::max(bar_->sizeHint().height(), label_->sizeHint().height())};
}

QSize TabCorner::sizeHint() const {
  const auto* tabs = qobject_cast<const QTabWidget*>(parentWidget());
  const int room = tabs != nullptr ? tabs->width() - tabs->tabBar()->sizeHint().width() : 0;
  return {std::max(room, 0), minimumSizeHint().height()};
}

void TabCorner::resizeEvent(QResizeEvent*) {
  Place();
}

void TabCorner::Place() {
  const QSize barSize = bar_->sizeHint();
  bar_->setGeometry(kBarGap, (height() - barSize.height()) / 2, barSize.width(), barSize.height());
  // The label's place counts from the tab's edges.
  const QSize labelSize = label_->sizeHint();
  const RectF tab{-static_cast<double>(x()), 0, static_cast<double>(parentWidget()->width()), 0};
  const double barEnd = bar_->isVisibleTo(this) ? bar_->geometry().right() + 1 + kBarGap : 0;
  const double left = PlaceDateLabel(tab, labelSize.width(), twipsPerPixel_(), barEnd);
  label_->setGeometry(static_cast<int>(left), (height() - labelSize.height()) / 2,
                      labelSize.width(), labelSize.height());
}

}  // namespace sched
