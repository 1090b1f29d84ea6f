#pragma once

#include <QWidget>

namespace sched {

// Puts a window in the middle of its screen each time it is shown, once its size is settled,
// and wholly on the part of the screen that windows may take.
void CentreOnScreen(QWidget* window);

// The part of a widget's screen that windows may take, in the screen's pixels.
QRect AvailableArea(const QWidget* widget);

}  // namespace sched
