#pragma once

#include <string>

namespace sched {

// The bar runs from 0 to 100 while a file is read or written; the values above mark the steps
// after it, up to the bar's maximum.
inline constexpr int kProgressViewsShown = 115;  // the loaded file's views are drawn
inline constexpr int kProgressDone = 130;        // the bar's maximum: all is done

// The caption beside the progress bar, the bar itself and the mouse pointer of the main window.
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
