#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

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

}  // namespace sched
