#pragma once

#include <QColor>
#include <cstdint>

namespace sched {

// A colour number of the views and forms, red in the low byte, then green, then blue.
inline QColor RgbColor(std::uint32_t color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                static_cast<int>((color >> 16) & 0xFF));
}

}  // namespace sched
