#pragma once

#include <QWidget>

#include "commands/appointment_commands.h"

namespace sched {

// The edit and repeat dialogs, modal over the main window.
class QtAppointmentDialogs final : public AppointmentDialogs {
 public:
  explicit QtAppointmentDialogs(QWidget* parent) : parent_(parent) {}

  void ShowEditDialog(SchEditModel& model) override;
  void ShowRepeatDialog(RepeatModel& repeat) override;

 private:
  QWidget* parent_;
};

}  // namespace sched
