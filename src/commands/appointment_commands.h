#pragma once

#include <string>
#include <vector>

#include "appointments/sch_edit_model.h"
#include "commands/command_set.h"
#include "commands/document_session.h"
#include "commands/pending_notices.h"
#include "platform/device_files.h"
#include "shell/app_state.h"

namespace sched {

// The appointment dialogs as the window shows them, modal.
class AppointmentDialogs : public SchEditHost {
 public:
  // Shows the opened edit dialog and returns when it has closed.
  virtual void ShowEditDialog(SchEditModel& model) = 0;
};

struct AppointmentServices {
  DocumentSession& session;
  CalendarViews& views;
  AppointmentDialogs& dialogs;
  PendingNotices& notices;
  Messages& messages;
  const Clock& clock;
  const DateFormatter& dates;
  DeviceFiles& device;  // its sound folder lists the alarm sounds
  AppState& state;
};

// Adding and changing an appointment through the edit dialog, from every place of the views.
class AppointmentCommands {
 public:
  explicit AppointmentCommands(AppointmentServices services) : s_(services) {}

  // The edit dialog for a new item on the shown date.
  void AddSchedule();
  // The edit dialog on the selected item; a new item when no item is selected.
  void ModifySchedule();

 private:
  SchEditModel MakeModel();
  // Shows the dialog with alarm notices held back, then brings the views up to date.
  void RunEditDialog(SchEditModel& model);

  AppointmentServices s_;
};

void BindAppointmentCommands(CommandSet& commands, AppointmentCommands& appointments);

}  // namespace sched
