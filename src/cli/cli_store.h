#pragma once

#include <iostream>
#include <string>

#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "store/schedule_store.h"

namespace sched {

// A schedule store for the command line: messages go to standard error, no window, no device.
class CliStore {
 public:
  CliStore()
      : messages_(std::cerr),
        store_(doc_, StoreServices{host_, messages_, progress_, clock_, device_, ""}) {}

  // Loads a schedule file from the PC; false (after "Read error!") when it cannot be read.
  bool Load(const std::string& path) {
    doc_.ScheduleFile = path;
    doc_.ScheduleOnPc = 1;
    store_.LoadScheduleFile();
    return !doc_.ScheduleFile.empty();
  }

  ScheduleStore& Store() { return store_; }
  const ScheduleDocument& Document() const { return doc_; }

 private:
  ScheduleDocument doc_;
  StoreHost host_;
  StreamMessages messages_;
  SilentProgress progress_;
  SystemClock clock_;
  NoDevice device_;
  ScheduleStore store_;
};

}  // namespace sched
