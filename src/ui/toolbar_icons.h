#pragma once

#include <QIcon>
#include <QString>

namespace sched {

// The toolbar's pictures, drawn at every size they are asked for, so that they stay crisp on
// any screen. `key` is the button's key ("NewF", "OpenF", "Save", ...).
QIcon ToolbarIcon(const QString& key);

}  // namespace sched
