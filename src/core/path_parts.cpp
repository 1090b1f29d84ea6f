#include "core/path_parts.h"

namespace sched {

PathParts SplitPath(std::string_view path) {
  const std::size_t cut = path.find_last_of("/\\");
  if (cut == std::string_view::npos) return {{}, path};
  // The root keeps its separator, so that its folder is never taken for none.
  return {path.substr(0, cut == 0 ? 1 : cut), path.substr(cut + 1)};
}

}  // namespace sched
