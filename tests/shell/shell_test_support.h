#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

// Whether a tool of the system is on the PATH.
inline bool HaveTool(const std::string& tool) {
  return std::system(("command -v " + tool + " >/dev/null 2>&1").c_str()) == 0;
}

// Runs a shell command and gives its exit status (-1 when it did not exit) and its output.
inline std::pair<int, std::string> RunCommand(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string out;
  char buffer[512];
  while (std::size_t n = fread(buffer, 1, sizeof buffer, pipe)) out.append(buffer, n);
  const int status = pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

}  // namespace sched
