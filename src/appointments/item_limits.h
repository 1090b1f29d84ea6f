#pragma once

namespace sched {

// What one item may hold, as the edit dialog checks it.
inline constexpr int kTitleLimit = 56;   // characters of the title, and of the place
inline constexpr int kMemoLimit = 1024;  // characters of the memo
inline constexpr int kMaxLead = 999;     // minutes an alarm may ring before the item
inline constexpr int kLongestSpan = 30;  // days an item over several dates may cover

}  // namespace sched
