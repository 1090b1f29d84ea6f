#include "shell/folder_case.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace sched {
namespace fs = std::filesystem;

namespace {

// The name of the entry of `folder` that matches `name` without regard to case.
std::optional<std::string> FindEntry(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return name;
  std::vector<std::string> matches;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string entry = it->path().filename().string();
    if (EqualsIgnoringCase(entry, name)) matches.push_back(entry);
  }
  if (matches.empty()) return std::nullopt;
  // The directory's order is arbitrary; sorting makes the choice the same on every run.
  return *std::min_element(matches.begin(), matches.end());
}

}  // namespace

fs::path ResolveIgnoringCase(const fs::path& base, std::string_view relative) {
  fs::path result = base;
  bool onDisk = true;  // once a name is missing, nothing below it can be on disk
  for (const std::string& name : SplitPathNames(relative)) {
    std::optional<std::string> entry;
    if (onDisk) entry = FindEntry(result, name);
    onDisk = entry.has_value();
    result /= entry.value_or(name);
  }
  return result;
}

}  // namespace sched
