#include "platform/std/huge_pages.h"

#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace sched {

void StartWithHugePages(char** argv) {
  constexpr std::string_view kName = "glibc.malloc.hugetlb";
  const char* set = std::getenv("GLIBC_TUNABLES");
  const std::string tunables = set != nullptr ? set : "";
  if (tunables.find(kName) != std::string::npos) return;
  const std::string value = (tunables.empty() ? "" : tunables + ":") + std::string(kName) + "=1";
  if (setenv("GLIBC_TUNABLES", value.c_str(), 1) != 0) return;
  execv("/proc/self/exe", argv);
}

}  // namespace sched
