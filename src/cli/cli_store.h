#pragma once

#include <filesystem>
#include <iostream>
#include <string>

#include "commands/document_commands.h"
#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "shell/texts.h"
#include "store/chains.h"
#include "store/schedule_store.h"

namespace sched {

// A schedule store for the command line: no window, no alarms; failures are told on standard
// error in the program's words.
class CliStore {
 public:
  CliStore() : store_(doc_, StoreServices{alarms_, progress_, clock_}) {
    store_.ClearIndex();
    store_.ResetHeader();
  }

  // Loads a schedule file from the PC; false when it cannot be read ("Read error!") or is no
  // schedule file at all, refused by its first bytes as the window refuses it.
  bool Load(const std::string& path) {
    if (std::filesystem::is_regular_file(path) && !CheckFileMagic(path)) {
      std::cerr << texts::kNotSchedulerFile << '\n';
      return false;
    }
    doc_.ScheduleFile = path;
    doc_.ScheduleOnPc = 1;
    if (store_.LoadScheduleFile(path)) return true;
    std::cerr << "Read error!\n";
    return false;
  }

  // Writes the schedule file; false (after "Write error!") when it cannot be written.
  bool Save(const std::string& path) {
    doc_.ScheduleFile = path;
    if (store_.SaveScheduleFile(path)) return true;
    std::cerr << "Write error!\n";
    return false;
  }

  ScheduleStore& Store() { return store_; }
  const ScheduleDocument& Document() const { return doc_; }

 private:
  ScheduleDocument doc_;
  NoAlarmHooks alarms_;
  SilentProgress progress_;
  SystemClock clock_;
  ScheduleStore store_;
};

// The SchDatList row of the `index`th live item of a day (1 for the first), in the day's order;
// -1 when the day has fewer.
inline int ItemOfDay(const SchDatCTL& t, const CivilDate& date, int index) {
  const int yearRow = FindYearRow(t, date.year);
  const int monthRow = yearRow < 0 ? -1 : FindMonthRow(t, yearRow, date.month);
  if (monthRow < 0) return -1;
  for (int row : DayChain(t.SchDatList, GetDayHead(t, monthRow, date.day))) {
    if (t.SchDatList.At(row).IsLive() && --index == 0) return row;
  }
  return -1;
}

}  // namespace sched
