#include "core/number_text.h"

#include <charconv>

namespace sched {

std::optional<int> ParseInt(std::string_view text, int base, int low, int high) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, base);
  if (text.empty() || error != std::errc{} || stop != end || value < low || value > high) {
    return std::nullopt;
  }
  return value;
}

}  // namespace sched
