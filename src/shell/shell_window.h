#pragma once

#include <string>

#include "store/store_host.h"

namespace sched {

// The main window as the shell's commands see it. It is also the host of the store.
class ShellWindow : public StoreHost {
 public:
  // The schedule list dialog, which commands hide before they open a dialog of their own.
  virtual void HideScheduleList() {}
  // The toolbar's Save button.
  virtual void EnableSaveButton() {}
  // The month and year delete commands, after a document is made empty.
  virtual void DisableDeleteMonthYear() {}
  // Redraws the views, as after a change of data or document.
  virtual void RefreshViews() {}
  virtual void ClearMonthBar() {}
  // Brings the window to the top and lets pending events run.
  virtual void BringToFront() {}
  // The shown date moved to today: the calendars, lists and captions follow.
  virtual void ShowDate(int /*year*/, int /*month*/, int /*day*/) {}
  // Alarms that came due while a dialog held them back.
  virtual void FlushPendingNotices() {}
  // The list of the device's alarm sounds changed.
  virtual void RefreshSoundList() {}
};

}  // namespace sched
