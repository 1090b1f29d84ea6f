// The delete commands of the window: the selected items, and the bulk deletes on the calendar.
#include <algorithm>

#include "commands/appointment_commands.h"

namespace sched {

void AppointmentCommands::DeleteSchedule() {
  const std::vector<int> rows = s_.views.SelectedRows();
  if (rows.empty()) return;
  const DayView& day = s_.views.Day();
  const int firstLine = std::min(day.List1Row, day.List1RowSel);
  const bool changed = deletes_.DeleteSelection(rows);
  AfterCommand(changed);
  if (changed && s_.views.Tab == 1) {
    // The line before the first one removed, or the top line, is selected.
    s_.views.SelectDayLine(std::max(firstLine - 1, 0));
    s_.session.RepaintViews();
  }
}

void AppointmentCommands::DeleteMonth() {
  const CivilDate date = s_.views.CurrentDate();
  AfterCommand(deletes_.DelMonth_Click(date.year, date.month));
}

void AppointmentCommands::DeleteYear() {
  AfterCommand(deletes_.DelYear_Click(s_.views.CurrentDate().year));
}

void AppointmentCommands::DeleteOlder() {
  s_.views.List().Visible = false;
  AfterCommand(deletes_.DelBefore_Click(s_.views.CurrentDate()));
}

void AppointmentCommands::DeleteNewer() {
  s_.views.List().Visible = false;
  AfterCommand(deletes_.DelAfter_Click(s_.views.CurrentDate()));
}

}  // namespace sched
