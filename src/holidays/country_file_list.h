#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sched {

// True for a name of the pattern "holiday*.ini", in any case: the names of country files.
bool IsCountryFileName(std::string_view name);

// The country files of a folder: the names (without folder) of its files that
// IsCountryFileName accepts, sorted as a file list shows them. Empty when the folder is
// missing.
std::vector<std::string> ListCountryFiles(const std::string& folder);

// The title of a country file: its bytes up to the first CR or LF, or all of them when there is
// no line end, as UTF-8. Empty when the file cannot be read.
std::string ReadCountryTitle(const std::string& path);

}  // namespace sched
