#pragma once

namespace sched {

// A rectangle on the screen in pixels.
struct ScreenRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

// A window's rectangle made to lie wholly in a screen's available area: no larger than the
// area, and moved no further than it must. A place saved on a larger screen, or at a smaller
// scale, thus comes back with every control in reach. The area has no negative size.
ScreenRect FitToArea(const ScreenRect& window, const ScreenRect& area);

}  // namespace sched
