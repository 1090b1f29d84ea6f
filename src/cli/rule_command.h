#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool rule WORD [YYYY/MM/DD COUNT]`: what a rule word holds, as one line of JSON, and,
// given a start date and a count, the sentence the repeat dialog shows when it opens on that
// rule; a message the dialog shows meanwhile goes to `err`. WORD is decimal (-32768 to 65535)
// or hexadecimal with 0x. Returns 0, and 2 for bad usage.
int RunRuleCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace sched
