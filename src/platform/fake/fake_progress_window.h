#pragma once

#include <string>

#include "platform/progress_window.h"

namespace sched {

// Notes what the progress window was told, one word or number a call: "open max 3 1 2 3 close".
class FakeProgressWindow : public ProgressWindow {
 public:
  std::string events;

  void Open() override { Note("open"); }
  void SetMaximum(int maximum) override { Note("max " + std::to_string(maximum)); }
  void SetValue(int value) override { Note(std::to_string(value)); }
  void Close() override { Note("close"); }

 private:
  void Note(const std::string& event) { events += (events.empty() ? "" : " ") + event; }
};

}  // namespace sched
