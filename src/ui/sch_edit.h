#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <array>

#include "appointments/sch_edit_model.h"

class QGridLayout;

namespace sched {

// The appointment edit dialog: shows its model's controls and hands it every change the user
// makes. The model is opened (new or modify) before the dialog is made.
class SchEdit : public QDialog {
  Q_OBJECT

 public:
  SchEdit(SchEditModel& model, QWidget* parent = nullptr);

  // Shows the dialog modally until OK or Cancel closes it; the model then tells what was
  // written.
  static void Run(SchEditModel& model, QWidget* parent);

  // The close box and Escape act as Cancel.
  void reject() override;

 protected:
  // The sound list hands its loss of the focus to the model.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The widgets are made in the order the Tab key visits them.
  void BuildTitleAndPlace(QGridLayout* grid);
  void BuildDatesAndTimes(QGridLayout* grid);
  void BuildAlarm(QGridLayout* grid);
  void BuildMemo(QGridLayout* grid);
  void BuildButtons(QGridLayout* grid);

  // Repaints every widget from the model, then gives the focus where the model asks.
  void ShowModel();
  void ShowTimes();
  void ShowAlarm();
  QWidget* FocusWidget(EditFocus focus) const;
  // Closes the dialog when the model's OK or Cancel said so, else shows what it changed.
  void Finish(bool closes);

  SchEditModel& model_;
  QLineEdit* text1_ = nullptr;
  QLineEdit* text3_ = nullptr;
  QPlainTextEdit* text2_ = nullptr;
  std::array<QToolButton*, 2> selSubject_{};  // the word lists of the title and the place
  std::array<QDateEdit*, 2> imDate1_{};
  std::array<QComboBox*, 2> combo1_{};
  QCheckBox* check3_ = nullptr;
  QPushButton* command1_ = nullptr;
  QCheckBox* check1_ = nullptr;
  QSpinBox* imNumber1_ = nullptr;
  QLabel* minutesLabel_ = nullptr;
  QComboBox* sound_ = nullptr;
  QToolButton* preview_ = nullptr;
  QCheckBox* check2_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace sched
