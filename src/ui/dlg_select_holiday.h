#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>

#include "holidays/dlg_select_holiday_model.h"

namespace sched {

// The country dialog: the titles of the country files, the one in use selected.
class DlgSelectHoliday : public QDialog {
  Q_OBJECT

 public:
  // Loads the model. When that finds the installation broken the dialog does not open.
  explicit DlgSelectHoliday(DlgSelectHolidayModel& model, QWidget* parent = nullptr);

  bool Loaded() const { return loaded_; }
  QListWidget* FListIniList() const { return fileList_; }
  QListWidget* ListHolidayInfo() const { return list_; }
  QPushButton* OKButton() const { return ok_; }
  QPushButton* CancelButton() const { return cancel_; }

  int exec() override;
  void open() override;

 private:
  DlgSelectHolidayModel& model_;
  bool loaded_ = false;
  QListWidget* fileList_ = nullptr;
  QListWidget* list_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace sched
