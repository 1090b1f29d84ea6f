#pragma once

#include <ostream>
#include <string>

#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "store/schedule_store.h"

namespace sched {

// A schedule store for the command line: no window, no alarms; failures are told on the error
// stream in the program's words, followed by the reason.
class CliStore {
 public:
  // Texts of the files read and written are in `page`.
  CliStore(std::ostream& err, CodePage page);

  // Loads a schedule file from the PC; false when it cannot be read or is damaged ("Read
  // error!"), or is no schedule file at all, refused by its first bytes as the window refuses it.
  bool Load(const std::string& path);
  // Writes the schedule file; false (after "Write error!") when it cannot be written.
  bool Save(const std::string& path);

  ScheduleStore& Store() { return store_; }
  ScheduleDocument& Document() { return doc_; }

 private:
  std::ostream& err_;
  ScheduleDocument doc_;
  NoAlarmHooks alarms_;
  SilentProgress progress_;
  SystemClock clock_;
  ScheduleStore store_;
};

}  // namespace sched
