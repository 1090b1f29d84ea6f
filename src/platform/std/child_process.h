#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace sched {

// Runs the program at `path` with `args` behind its name, without a shell, and waits for it;
// what it writes on its standard output and error goes to `out` and `err`. Its exit status;
// nothing when it could not be started or was killed.
std::optional<int> RunChild(const std::string& path, const std::vector<std::string>& args,
                            std::ostream& out, std::ostream& err);

// The folder that holds the running program.
std::string OwnFolder();

}  // namespace sched
