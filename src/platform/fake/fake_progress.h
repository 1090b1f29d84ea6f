#pragma once

#include <string>
#include <vector>

#include "platform/progress_display.h"

namespace sched {

// Records what the progress display was told, one text line a call ("value 100", ...).
class FakeProgress : public ProgressDisplay {
 public:
  std::vector<std::string> events;
  std::vector<int> values;
  bool visible = false;
  std::string caption;

  void SetCaption(const std::string& text) override {
    caption = text;
    events.push_back("caption " + text);
  }
  void SetValue(int value) override {
    values.push_back(value);
    events.push_back("value " + std::to_string(value));
  }
  void SetVisible(bool on) override {
    visible = on;
    events.push_back(on ? "show" : "hide");
  }
  void Refresh() override { events.push_back("refresh"); }
  void SetWaitPointer(bool waiting) override {
    events.push_back(waiting ? "wait pointer" : "normal pointer");
  }
};

}  // namespace sched
