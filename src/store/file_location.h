#pragma once

#include <string>

namespace sched {

// "PC:" or "Tarvex:" and the file's name.
std::string FormatLocation(const std::string& path, int onPc);

}  // namespace sched
