#include "cli/cli_args.h"

#include <charconv>

namespace sched {

std::optional<int> ParseInt(const std::string& text, int base, int low, int high) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, value, base);
  if (text.empty() || ec != std::errc{} || ptr != end || value < low || value > high) {
    return std::nullopt;
  }
  return value;
}

std::optional<CivilDate> ParseDate(const std::string& text) {
  if (text.size() != 10 || text[4] != '/' || text[7] != '/') return std::nullopt;
  const auto year = ParseInt(text.substr(0, 4), 10, kFirstYear, kLastYear);
  const auto month = ParseInt(text.substr(5, 2), 10, 1, 12);
  const auto day = ParseInt(text.substr(8, 2), 10, 1, 31);
  if (!year || !month || !day || !IsValidDate(*year, *month, *day)) return std::nullopt;
  return CivilDate{*year, *month, *day};
}

}  // namespace sched
