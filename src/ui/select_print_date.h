#pragma once

#include <QDateEdit>
#include <QDialog>
#include <QPushButton>

#include "printing/select_print_date_model.h"

namespace sched {

// The dialog that asks for the range to print: the start box ImDate1 and the end box ImDate2,
// each a date box with its drop-down calendar.
class SelectPrintDate : public QDialog {
  Q_OBJECT

 public:
  // Shows the opened model's dates.
  explicit SelectPrintDate(SelectPrintDateModel& model, QWidget* parent = nullptr);

  QDateEdit* ImDate1() const { return imDate1_; }
  QDateEdit* ImDate2() const { return imDate2_; }
  QPushButton* SchEditOK() const { return ok_; }
  QPushButton* SchEditCAN() const { return cancel_; }

  // Closing without OK, by Cancel, Escape or the close box.
  void reject() override;

 private:
  QDateEdit* AddDateBox(const char* name, const CivilDate& date);

  SelectPrintDateModel& model_;
  QDateEdit* imDate1_ = nullptr;
  QDateEdit* imDate2_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace sched
