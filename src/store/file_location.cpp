#include "store/file_location.h"

#include "core/path_parts.h"

namespace sched {

std::string FormatLocation(const std::string& path, int onPc) {
  return (onPc == 1 ? "PC:" : "Tarvex:") + std::string(SplitPath(path).name);
}

}  // namespace sched
