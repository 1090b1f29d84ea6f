#pragma once

#include <QRect>
#include <QWidget>

#include "views/layout.h"

namespace sched {

// Puts a window in the middle of its screen each time it is shown, once its size is settled,
// and wholly on the part of the screen that windows may take.
void CentreOnScreen(QWidget* window);

// A rectangle of the screen as the layout's arithmetic takes it, and back, rounded to pixels.
RectF ToRectF(const QRect& rect);
QRect ToQRect(const RectF& rect);

// The part of a widget's screen that windows may take, in the screen's pixels.
QRect AvailableArea(const QWidget* widget);

}  // namespace sched
