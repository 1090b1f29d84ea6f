#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_case.h"
#include "platform/path_names.h"

namespace sched {

// The folder and file names of a relative path, split at '\' and '/', empty names dropped.
inline std::vector<std::string> SplitPathNames(std::string_view relative) {
  return SplitNames(relative, "\\/");
}

// `base` joined with the names of `relative`, each name matched against what is on disk without
// regard to case: an entry spelt exactly so wins, else the first entry that differs only in case,
// else the name as given. The device's folder names are case-insensitive while this machine's
// file system may not be.
std::filesystem::path ResolveIgnoringCase(const std::filesystem::path& base,
                                          std::string_view relative);

}  // namespace sched
