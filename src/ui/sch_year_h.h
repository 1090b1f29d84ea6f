#pragma once

#include <QCalendarWidget>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "holidays/sch_year_h_model.h"

namespace sched {

// The per-day holiday dialog: the date, the question and a calendar on the date.
class SchYearH : public QDialog {
  Q_OBJECT

 public:
  // Loads the model, which makes sure the current year has its row.
  explicit SchYearH(SchYearHModel& model, QWidget* parent = nullptr);

  QLabel* Yday() const { return yday_; }
  QLabel* Label2() const { return label2_; }
  QCalendarWidget* CAL() const { return cal_; }
  QPushButton* Command1() const { return command1_; }
  QPushButton* Command2() const { return command2_; }

 private:
  SchYearHModel& model_;
  QLabel* yday_ = nullptr;
  QLabel* label2_ = nullptr;
  QCalendarWidget* cal_ = nullptr;
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
};

}  // namespace sched
