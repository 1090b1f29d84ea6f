#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/run_command.h"

namespace sched {

// Writes a text file, making its folders.
inline void WriteText(const std::filesystem::path& file, const std::string& text) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

inline std::string ReadText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
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
