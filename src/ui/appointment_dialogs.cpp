#include "ui/appointment_dialogs.h"

#include <QApplication>

#include "ui/repeat.h"
#include "ui/sch_edit.h"
#include "ui/select_subject.h"

namespace sched {

void QtAppointmentDialogs::ShowEditDialog(SchEditModel& model) {
  SchEdit::Run(model, parent_);
}

void QtAppointmentDialogs::ShowRepeatDialog(RepeatModel& repeat) {
  RepeatForm form(repeat, Owner());
  form.exec();
}

void QtAppointmentDialogs::ShowSelectSubject(SelectSubjectModel& model) {
  SelectSubject form(model, Owner());
  form.exec();
}

QWidget* QtAppointmentDialogs::Owner() const {
  QWidget* active = QApplication::activeModalWidget();
  return active != nullptr ? active : parent_;
}

}  // namespace sched
