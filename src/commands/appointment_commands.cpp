#include "commands/appointment_commands.h"

#include <algorithm>

#include "appointments/texts.h"
#include "core/app_texts.h"
#include "shell/device_service.h"

namespace sched {

SchEditModel AppointmentCommands::MakeModel() {
  return SchEditModel(SchEditServices{s_.session.Store(), s_.messages, s_.clock, s_.dates,
                                      s_.dialogs, AlarmSoundNames(s_.device), s_.media});
}

void AppointmentCommands::AddSchedule() {
  SchEditModel model = MakeModel();
  model.OpenNew();
  RunEditDialog(model);
}

void AppointmentCommands::ModifySchedule() {
  const ItemChoice item = s_.views.SelectedItem();
  if (item.multiple) {
    s_.messages.Show(
        {texts::kCannotModifyMultiple, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
    return;
  }
  if (item.row < 0) {
    AddSchedule();
    return;
  }
  SchEditModel model = MakeModel();
  model.OpenModify(item.row);
  RunEditDialog(model);
}

void AppointmentCommands::RunEditDialog(SchEditModel& model) {
  s_.views.PopupActive = 0;
  const NoticesHeldWhile held(s_.notices);
  s_.dialogs.ShowEditDialog(model);
  if (model.Written()) {
    s_.session.AfterChange();
    if (s_.views.Tab == 1) {
      s_.views.SelectDayRow(model.NewRow());
      s_.session.RepaintViews();
    }
  } else {
    // Cancel puts the shown date back, which the dialog may have moved to a series' start.
    s_.session.RefreshViews();
  }
}

void AppointmentCommands::CopySchedule() {
  const ItemChoice item = s_.views.SelectedItem();
  clipboard_.CopySchedule(item.multiple, item.row);
  s_.views.EditCTL_Open();
  s_.session.RepaintViews();
}

void AppointmentCommands::PasteSchedule() {
  AfterCommand(clipboard_.PasteSchedule());
}

void AppointmentCommands::AfterCommand(bool changed) {
  if (changed) {
    s_.session.AfterChange();
  } else {
    s_.session.RepaintViews();
  }
}

void BindAppointmentCommands(CommandSet& commands, AppointmentCommands& appointments) {
  const auto bind = [&](CommandId id, void (AppointmentCommands::*routine)()) {
    commands.Bind(id, [&appointments, routine] { (appointments.*routine)(); });
  };
  bind(CommandId::Add, &AppointmentCommands::AddSchedule);
  bind(CommandId::Modify, &AppointmentCommands::ModifySchedule);
  bind(CommandId::Copy, &AppointmentCommands::CopySchedule);
  bind(CommandId::Paste, &AppointmentCommands::PasteSchedule);
  bind(CommandId::Delete, &AppointmentCommands::DeleteSchedule);
  bind(CommandId::DeleteMonth, &AppointmentCommands::DeleteMonth);
  bind(CommandId::DeleteYear, &AppointmentCommands::DeleteYear);
  bind(CommandId::DeleteOlder, &AppointmentCommands::DeleteOlder);
  bind(CommandId::DeleteNewer, &AppointmentCommands::DeleteNewer);
}

}  // namespace sched
