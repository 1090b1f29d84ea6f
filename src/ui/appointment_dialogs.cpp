#include "ui/appointment_dialogs.h"

#include <QApplication>

#include "ui/repeat.h"
#include "ui/sch_edit.h"

namespace sched {

void QtAppointmentDialogs::ShowEditDialog(SchEditModel& model) {
  SchEdit::Run(model, parent_);
}

void QtAppointmentDialogs::ShowRepeatDialog(RepeatModel& repeat) {
  QWidget* active = QApplication::activeModalWidget();
  RepeatForm form(repeat, active != nullptr ? active : parent_);
  form.exec();
}

}  // namespace sched
