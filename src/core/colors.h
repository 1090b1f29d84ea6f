#pragma once

#include <cstdint>

namespace sched {

// Colours as numbers, red in the low byte; the views and the holiday dialogs draw a holiday in
// this one.
inline constexpr std::uint32_t kRedColor = 255u;

}  // namespace sched
