#pragma once

#include <string_view>

#include "platform/messages.h"

namespace sched {

// True when the name ends in ".csv", in any case.
bool IsCsvName(std::string_view name);

// True for a CSV file's name; else says "This is not a CSV file.".
bool CheckIsCsvFile(std::string_view name, Messages& messages);

}  // namespace sched
