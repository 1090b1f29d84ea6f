#pragma once

#include <optional>

namespace sched {

// Day of March (19 to 22) of the March equinox in Japanese time, as the Japanese calendar
// fixes the Vernal Equinox Day; nothing outside 1900-2099, where the formula is not valid.
std::optional<int> MarchEquinoxDay(int year);

// Day of September (22 to 24) of the September equinox in Japanese time; 1900-2099 only.
std::optional<int> SeptemberEquinoxDay(int year);

}  // namespace sched
