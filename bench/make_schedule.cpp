// make_schedule: writes a schedule file of the size and content of years of real use, for the
// whole-process timings of bench/cold_bench.sh.
#include <cstdlib>
#include <iostream>

#include "bench/schedule_maker.h"
#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "store/alarm_hooks.h"
#include "store/schedule_store.h"

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::cerr << "usage: make_schedule OUT.scl [ROWS]\n";
    return 2;
  }
  const int rows = argc == 3 ? std::atoi(argv[2]) : 208000;
  sched::ScheduleDocument doc;
  sched::NoAlarmHooks alarms;
  sched::SilentProgress progress;
  sched::SystemClock clock;
  sched::ScheduleStore store(doc, {alarms, progress, clock});
  store.ClearIndex();
  store.ResetHeader();
  for (const sched::SchRecord& r : sched::ScheduleMaker(20240601).Make(rows)) {
    store.InsertRecord(r);
  }
  if (store.SaveScheduleFile(argv[1])) return 0;
  std::cerr << "make_schedule: cannot write " << argv[1] << '\n';
  return 1;
}
