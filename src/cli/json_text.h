#pragma once

#include <string>

namespace sched {

// The text as a JSON string, quotes included.
std::string JsonString(std::string_view text);

}  // namespace sched
