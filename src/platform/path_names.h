#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace sched {

// The names of a path split at any of the separators, empty names dropped, so that a leading,
// trailing or doubled separator changes nothing.
inline std::vector<std::string> SplitNames(std::string_view path, std::string_view separators) {
  std::vector<std::string> names;
  std::size_t start = 0;
  while (start <= path.size()) {
    const std::size_t stop = std::min(path.find_first_of(separators, start), path.size());
    if (stop > start) names.emplace_back(path.substr(start, stop - start));
    start = stop + 1;
  }
  return names;
}

}  // namespace sched
