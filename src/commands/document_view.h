#pragma once

#include <string>

namespace sched {

// The main window as the document commands see it: what it shows of the document. The view
// models (CalendarViews) hold the state; the window paints it.
class DocumentView {
 public:
  virtual ~DocumentView() = default;
  virtual void SetTitle(const std::string& title) = 0;
  virtual void ShowFirstTab() = 0;
  virtual void HideScheduleList() = 0;
  // Brings the window to the top and lets pending events run.
  virtual void BringToFront() = 0;
  // Paints the tabs, the date label, the schedule list and the menus from the view models.
  virtual void ShowViews() = 0;
  // Paints only the menus' and buttons' enablement.
  virtual void ShowMenus() = 0;
};

}  // namespace sched
