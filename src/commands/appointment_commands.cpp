#include "commands/appointment_commands.h"

#include <algorithm>

#include "appointments/texts.h"
#include "core/app_texts.h"
#include "shell/device_service.h"

namespace sched {

SchEditModel AppointmentCommands::MakeModel() {
  return SchEditModel(SchEditServices{s_.session.Store(), s_.messages, s_.clock, s_.dates,
                                      s_.dialogs, AlarmSoundNames(s_.device)});
}

void AppointmentCommands::AddSchedule() {
  SchEditModel model = MakeModel();
  model.OpenNew();
  RunEditDialog(model);
}

void AppointmentCommands::ModifySchedule() {
  const ItemChoice item = s_.views.SelectedItem();
  if (item.multiple) {
    s_.messages.Show({appointment_texts::kCannotModifyMultiple, kAppTitle, MsgIcon::Exclamation,
                      MsgButtons::Ok});
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
  s_.state.NoticesHeld = true;
  s_.dialogs.ShowEditDialog(model);
  s_.state.NoticesHeld = false;
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
  s_.notices.FlushPendingNotices();
}

void BindAppointmentCommands(CommandSet& commands, AppointmentCommands& appointments) {
  commands.Bind(CommandId::Add, [&appointments] { appointments.AddSchedule(); });
  commands.Bind(CommandId::Modify, [&appointments] { appointments.ModifySchedule(); });
}

}  // namespace sched
