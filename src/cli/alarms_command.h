#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool alarms FILE.scl [YYYY/MM/DD]`: the alarms that ring on the date (today when none is
// given), in ringing order, one a line: the ringing time "h:mm AM", then the times, the title
// and the place as the notice window shows them, tab-separated. An alarm whose lead reaches
// into the day before rings, and is listed, on that day. Returns 0, 1 when the file does not
// load, and 2 for bad usage.
int RunAlarmsCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace sched
