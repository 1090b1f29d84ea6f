#pragma once

#include <string>
#include <vector>

#include "alarms/notice_gate.h"
#include "appointments/copy_paste.h"
#include "appointments/delete_commands.h"
#include "appointments/sch_edit_model.h"
#include "commands/command_set.h"
#include "commands/document_session.h"
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
  NoticeGate& notices;  // held while a dialog is open
  Messages& messages;
  const Clock& clock;
  const DateFormatter& dates;
  DeviceFiles& device;  // its sound folder lists the alarm sounds
  AppState& state;
  SchEditMedia* media = nullptr;  // the edit dialog's sound preview and word lists
};

// The commands on appointments, from every place of the views: adding and changing one through
// the edit dialog, copy and paste, and the deletes.
class AppointmentCommands {
 public:
  explicit AppointmentCommands(AppointmentServices services)
      : s_(services),
        clipboard_(services.session.Store(), services.messages),
        deletes_(services.session.Store(), services.messages, services.dates) {}

  // The edit dialog for a new item on the shown date.
  void AddSchedule();
  // The edit dialog on the selected item; a new item when no item is selected.
  void ModifySchedule();
  // Copy of the selected item; Paste on the shown date.
  void CopySchedule();
  void PasteSchedule();
  // The selected items of the list in use.
  void DeleteSchedule();
  // The bulk deletes of the shown month, the shown year, and before or after the shown date.
  void DeleteMonth();
  void DeleteYear();
  void DeleteOlder();
  void DeleteNewer();

 private:
  SchEditModel MakeModel();
  // Shows the dialog with alarm notices held back, then brings the views up to date.
  void RunEditDialog(SchEditModel& model);
  // The views after a command that may have changed the schedule.
  void AfterCommand(bool changed);

  AppointmentServices s_;
  CopyPaste clipboard_;
  DeleteCommands deletes_;
};

void BindAppointmentCommands(CommandSet& commands, AppointmentCommands& appointments);

}  // namespace sched
