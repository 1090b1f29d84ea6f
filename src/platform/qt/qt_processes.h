#pragma once

#include "platform/processes.h"

namespace sched {

class QtProcesses : public Processes {
 public:
  bool Start(const std::string& program, const std::vector<std::string>& args) override;
};

}  // namespace sched
