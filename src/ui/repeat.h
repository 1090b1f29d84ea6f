#pragma once

#include <QButtonGroup>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <array>

#include "appointments/repeat_model.h"

namespace sched {

// A number box of the repeat dialog (ImNumber with its UpDown). Its model keeps the range:
// the box takes any typed number, and hands its steps and keys to the model instead of
// changing its value itself.
class RepeatNumberBox : public QSpinBox {
  Q_OBJECT

 public:
  explicit RepeatNumberBox(QWidget* parent);
  void Show(const RepeatNumber& number);
  void stepBy(int steps) override;

 signals:
  void stepped(int steps);
  // Up, Down (by their window-system codes) and Enter, which applies the typed value.
  void keyDown(int key);

 protected:
  StepEnabled stepEnabled() const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  RepeatNumber shown_;
};

// The repeat dialog: shows its opened model and hands it every click, key and typed value.
class RepeatForm : public QDialog {
  Q_OBJECT

 public:
  explicit RepeatForm(RepeatModel& model, QWidget* parent = nullptr);

  QRadioButton* Option1(int index) const { return option1_[static_cast<std::size_t>(index)]; }
  QRadioButton* Option2(int index) const { return option2_[static_cast<std::size_t>(index)]; }
  QComboBox* Combo1() const { return combo1_; }
  QComboBox* Combo2() const { return combo2_; }
  RepeatNumberBox* ImNumber1() const { return imNumber1_; }
  RepeatNumberBox* ImNumber2() const { return imNumber2_; }
  QLabel* Label2() const { return label2_; }
  QLabel* Label6(int index) const { return label6_[static_cast<std::size_t>(index)]; }
  QPushButton* OKButton() const { return okButton_; }
  QPushButton* CancelButton() const { return cancelButton_; }

  // Closing without OK, by Cancel, Escape or the close box.
  void reject() override;

 private:
  void BuildOptions(QVBoxLayout* layout);
  QFrame* BuildFrame1();
  RepeatNumberBox* AddNumber(RepeatNumberField field, const char* name);
  void ReserveSentenceRoom();
  // Runs a handler of the model and shows the model again; nothing while one runs already,
  // as a message box of the model may move the focus and end an edit meanwhile.
  template <typename Handler>
  void Handle(Handler handler);
  // Hands the model a typed value the box holds; false when the model refused it.
  bool CommitTyped(RepeatNumberField field);
  void OK_Click();
  void ShowModel();
  RepeatNumberBox* Box(RepeatNumberField field) const;

  RepeatModel& model_;
  bool handling_ = false;
  std::array<QRadioButton*, 5> option1_{};
  std::array<QRadioButton*, 2> option2_{};
  QFrame* frame1_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QComboBox* combo2_ = nullptr;
  RepeatNumberBox* imNumber1_ = nullptr;
  RepeatNumberBox* imNumber2_ = nullptr;
  QLabel* label4_ = nullptr;
  QLabel* label5_ = nullptr;
  std::array<QLabel*, 2> label6_{};
  QLabel* label2_ = nullptr;
  QPushButton* okButton_ = nullptr;
  QPushButton* cancelButton_ = nullptr;
};

}  // namespace sched
