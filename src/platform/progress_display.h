#pragma once

#include <string>

namespace sched {

// The caption beside the progress bar, the bar itself and the mouse pointer of the main window.
// The bar's maximum is above 100: values up to 130 mark the steps after reading or writing.
class ProgressDisplay {
 public:
  virtual ~ProgressDisplay() = default;
  virtual void SetCaption(const std::string& text) = 0;
  virtual void SetValue(int value) = 0;
  virtual void SetVisible(bool visible) = 0;
  // Lets the window repaint now, while a long piece of work holds the thread.
  virtual void Refresh() = 0;
  virtual void SetWaitPointer(bool waiting) = 0;
};

}  // namespace sched
