#pragma once

#include <string_view>

namespace sched {

// A path cut at its last separator. Both '/' and '\' separate, since the device's paths use
// the second. A bare name has no folder (empty); a path that ends in a separator has no name.
struct PathParts {
  std::string_view folder;  // without the separator; "/" stays for a file in the root
  std::string_view name;
};
PathParts SplitPath(std::string_view path);

}  // namespace sched
