#pragma once

#include <climits>
#include <optional>
#include <string_view>

namespace sched {

// The whole number that all of `text` writes in `base`, from `low` to `high`; nothing for
// any other text: empty, blanks, a plus sign, anything after the digits, or out of range.
std::optional<int> ParseInt(std::string_view text, int base = 10, int low = INT_MIN,
                            int high = INT_MAX);

}  // namespace sched
