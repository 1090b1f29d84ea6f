#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace sched {

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
