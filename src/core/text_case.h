#pragma once

#include <string>
#include <string_view>

namespace sched {

// True when the two texts are equal but for the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace sched
