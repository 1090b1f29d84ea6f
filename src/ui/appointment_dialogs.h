#pragma once

#include <QWidget>

#include "commands/appointment_commands.h"
#include "media/edit_dialog_media.h"

namespace sched {

// The edit, repeat and word list dialogs, modal over the main window.
class QtAppointmentDialogs final : public AppointmentDialogs, public SelectSubjectHost {
 public:
  explicit QtAppointmentDialogs(QWidget* parent) : parent_(parent) {}

  void ShowEditDialog(SchEditModel& model) override;
  void ShowRepeatDialog(RepeatModel& repeat) override;
  void ShowSelectSubject(SelectSubjectModel& model) override;

 private:
  // The dialog open over the window, else the window.
  QWidget* Owner() const;

  QWidget* parent_;
};

}  // namespace sched
