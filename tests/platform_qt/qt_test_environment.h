#pragma once

#include <QString>
#include <cstdlib>
#include <string>

#include "tests/support/temp_dir.h"

namespace sched {

// The user's config folder of the test process: a temporary folder, set before the first use of
// QSettings, which takes the folder once for the whole process.
inline const TempDir& ConfigHome() {
  static TempDir dir;
  static const bool set = setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1) == 0;
  (void)set;
  return dir;
}

inline QString IniFileIn(const TempDir& dir, const std::string& name) {
  return QString::fromStdString(dir.File(name));
}

}  // namespace sched
