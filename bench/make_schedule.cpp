// make_schedule: writes a schedule file of the size and content of years of real use, for the
// whole-process timings of bench/cold_bench.sh; with --japanese its texts are Japanese, written
// in the Japanese code page.
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "bench/schedule_maker.h"
#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "store/alarm_hooks.h"
#include "store/schedule_store.h"

int main(int argc, char** argv) {
  const bool japanese = argc > 1 && std::string_view(argv[argc - 1]) == "--japanese";
  const int args = argc - (japanese ? 1 : 0);
  if (args < 2 || args > 3) {
    std::cerr << "usage: make_schedule OUT.scl [ROWS] [--japanese]\n";
    return 2;
  }
  const int rows = args == 3 ? std::atoi(argv[2]) : 208000;
  sched::ScheduleDocument doc;
  doc.FileCodePage = japanese ? sched::CodePage::kJapanese : sched::CodePage::kWestern;
  sched::NoAlarmHooks alarms;
  sched::SilentProgress progress;
  sched::SystemClock clock;
  sched::ScheduleStore store(doc, {alarms, progress, clock});
  store.ClearIndex();
  store.ResetHeader();
  const sched::Vocabulary& words = japanese ? sched::kJapaneseWords : sched::kEnglishWords;
  for (const sched::SchRecord& r : sched::ScheduleMaker(20240601, words).Make(rows)) {
    store.InsertRecord(r);
  }
  if (store.SaveScheduleFile(argv[1])) return 0;
  std::cerr << "make_schedule: cannot write " << argv[1] << '\n';
  return 1;
}
