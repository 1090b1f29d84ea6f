#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/run_command.h"
#include "tests/support/temp_dir.h"

namespace sched {

// Writes the file `name` of the folder, making the folders on its way, and gives its path.
inline std::string WriteWithFolders(const TempDir& dir, const std::string& name,
                                    const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(dir.File(name)).parent_path());
  return dir.Write(name, text);
}

inline std::string ReadText(const std::filesystem::path& file) {
  const std::vector<std::uint8_t> bytes = ReadBytes(file.string());
  return {bytes.begin(), bytes.end()};
}

// A path of a case file with each of the names ($cache, $dir) replaced by its value.
inline std::string Expand(std::string text,
                          const std::vector<std::pair<std::string, std::string>>& names) {
  for (const auto& [name, value] : names) {
    if (const auto at = text.find(name); at != std::string::npos)
      text.replace(at, name.size(), value);
  }
  return text;
}

}  // namespace sched
