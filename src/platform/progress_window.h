#pragma once

namespace sched {

// A small window of its own with a progress bar, shown over its owner while a piece of work
// holds the thread. The bar starts at 0 of 100 when the window opens.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;
  virtual void Open() = 0;
  virtual void SetMaximum(int maximum) = 0;
  virtual void SetValue(int value) = 0;
  virtual void Close() = 0;
};

}  // namespace sched
