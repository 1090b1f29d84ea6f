#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "link/link_settings_model.h"

namespace sched {

// "Data Link Settings" over its model: the calendar file's path and a Browse button, or the
// calendar server's URL, the user name and a Test Connection button. The window copies values
// only; what they mean is the model's.
class DataLinkSettings : public QDialog {
  Q_OBJECT

 public:
  DataLinkSettings(LinkSettingsModel& model, QWidget* parent);

 private:
  // The boxes of the choice not taken are greyed.
  void ShowKind();

  LinkSettingsModel& model_;
  QRadioButton* fileChoice_ = nullptr;
  QRadioButton* serverChoice_ = nullptr;
  QLineEdit* calendarFile_ = nullptr;
  QPushButton* browse_ = nullptr;
  QLineEdit* serverUrl_ = nullptr;
  QLineEdit* serverUser_ = nullptr;
  QPushButton* test_ = nullptr;
};

}  // namespace sched
