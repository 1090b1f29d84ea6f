#pragma once

#include <string>

namespace sched {

// The text as a JSON string, quotes included.
std::string JsonString(const std::string& text);

}  // namespace sched
