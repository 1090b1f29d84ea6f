#pragma once

namespace sched {

// Key codes as the window system numbers them, for the keys the program reacts to.
enum KeyCode : int {
  kKeyEnter = 13,
  kKeyEscape = 27,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyF1 = 112
};

}  // namespace sched
