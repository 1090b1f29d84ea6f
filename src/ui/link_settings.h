#pragma once

#include <QDialog>
#include <QLineEdit>

#include "link/link_settings_model.h"

namespace sched {

// "Data Link Settings" over its model: the calendar file's path and a Browse button. The window
// copies values only; what they mean is the model's.
class DataLinkSettings : public QDialog {
  Q_OBJECT

 public:
  DataLinkSettings(LinkSettingsModel& model, QWidget* parent);

 private:
  LinkSettingsModel& model_;
  QLineEdit* calendarFile_ = nullptr;
};

}  // namespace sched
