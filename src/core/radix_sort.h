#pragma once

#include <cstdint>
#include <numeric>
#include <vector>

namespace sched {

// Sorts items by a 64-bit key, `keyOf(item)`, keeping the order of items with equal keys. Four
// passes over 16 bits each, a pass skipped when all keys agree on its bits: linear in the
// number of items, for the large tables of a schedule.
template <typename T, typename KeyOf>
void RadixSort(std::vector<T>& items, KeyOf keyOf) {
  if (items.size() < 2) return;
  std::vector<T> sorted(items.size());
  std::vector<std::uint32_t> place(std::size_t{1} << 16);
  for (unsigned shift = 0; shift < 64; shift += 16) {
    const auto digit = [&](const T& item) {
      return static_cast<std::size_t>(keyOf(item) >> shift & 0xFFFF);
    };
    std::fill(place.begin(), place.end(), 0);
    for (const T& item : items) ++place[digit(item)];
    if (place[digit(items.front())] == items.size()) continue;
    std::exclusive_scan(place.begin(), place.end(), place.begin(), std::uint32_t{0});
    for (const T& item : items) sorted[place[digit(item)]++] = item;
    items.swap(sorted);
  }
}

}  // namespace sched
