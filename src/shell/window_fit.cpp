#include "shell/window_fit.h"

#include <algorithm>

namespace sched {

ScreenRect FitToArea(const ScreenRect& window, const ScreenRect& area) {
  ScreenRect fitted;
  fitted.width = std::clamp(window.width, 0, area.width);
  fitted.height = std::clamp(window.height, 0, area.height);
  fitted.left = std::clamp(window.left, area.left, area.left + area.width - fitted.width);
  fitted.top = std::clamp(window.top, area.top, area.top + area.height - fitted.height);
  return fitted;
}

}  // namespace sched
