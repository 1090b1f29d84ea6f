#include "store/table.h"

namespace sched {

std::int32_t CellNumber(std::string_view text) {
  std::size_t pos = 0;
  bool negative = false;
  if (pos < text.size() && (text[pos] == '-' || text[pos] == '+')) negative = text[pos++] == '-';
  std::int64_t value = 0;
  for (; pos < text.size() && text[pos] >= '0' && text[pos] <= '9'; ++pos) {
    value = value * 10 + (text[pos] - '0');
    if (value > 0xFFFFFFFFLL) break;
  }
  // Cells hold 32-bit values; wider text wraps as the 32-bit store would.
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(negative ? -value : value));
}

std::vector<std::string_view> SplitLine(std::string_view line) {
  std::vector<std::string_view> cells;
  std::size_t start = 0;
  while (true) {
    const std::size_t tab = line.find('\t', start);
    cells.push_back(line.substr(start, tab == std::string_view::npos ? tab : tab - start));
    if (tab == std::string_view::npos) return cells;
    start = tab + 1;
  }
}

}  // namespace sched
