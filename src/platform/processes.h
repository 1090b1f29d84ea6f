#pragma once

#include <string>
#include <vector>

namespace sched {

// Other programs, started without a shell.
class Processes {
 public:
  virtual ~Processes() = default;
  // Starts `program` with `args` and does not wait for it; false when it cannot be started.
  virtual bool Start(const std::string& program, const std::vector<std::string>& args) = 0;
};

}  // namespace sched
