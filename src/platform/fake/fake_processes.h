#pragma once

#include <string>
#include <vector>

#include "platform/processes.h"

namespace sched {

// Records the programs it is asked to start, each as its path and arguments on one line.
class FakeProcesses : public Processes {
 public:
  bool starts = true;
  std::vector<std::string> started;

  bool Start(const std::string& program, const std::vector<std::string>& args) override {
    std::string line = program;
    for (const std::string& arg : args) line += " " + arg;
    started.push_back(line);
    return starts;
  }
};

}  // namespace sched
