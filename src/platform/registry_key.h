#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/text_case.h"
#include "platform/path_names.h"

namespace sched {

// The names of a registry key path such as "Software\QTL\Sorvane-e\PC\", empty names dropped,
// so that a trailing or doubled backslash changes nothing.
inline std::vector<std::string> RegistryKeyNames(std::string_view key) {
  return SplitNames(key, "\\");
}

// The form in which two names compare equal when they differ only in case, as the registry's
// key and value names do.
inline std::string FoldedName(std::string_view name) {
  return ToLowerAscii(name);
}

// A key path in one spelling for all its spellings: folded names joined by backslashes.
inline std::string FoldedKey(std::string_view key) {
  std::string folded;
  for (const std::string& name : RegistryKeyNames(key)) {
    if (!folded.empty()) folded += '\\';
    folded += FoldedName(name);
  }
  return folded;
}

}  // namespace sched
