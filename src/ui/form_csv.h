#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "interchange/form_csv_model.h"
#include "platform/qt/qt_timer.h"

namespace sched {

// Timer1 of the mapping dialog: a QTimer whose ticks also show the model again.
class FormCsvTimer : public Timer {
 public:
  void OnTick(std::function<void()> routine) override;
  void SetInterval(int milliseconds) override { timer_.SetInterval(milliseconds); }
  void SetEnabled(bool enabled) override { timer_.SetEnabled(enabled); }
  std::function<void()> afterTick;

 private:
  QtTimer timer_;
};

// The CSV mapping dialog: shows its model and hands it every click, press and scroll.
class FormCsv : public QDialog {
  Q_OBJECT

 public:
  FormCsv(FormCsvModel& model, FormCsvTimer& timer, QWidget* parent = nullptr);

  QListWidget* FieldList() const { return fieldList_; }
  QListWidget* CsvList() const { return csvList_; }
  QListWidget* FileField() const { return fileField_; }
  QPushButton* Button(const QString& name) const;

  // Closing without OK, by Cancel, Escape or the close box: the model asks about changes.
  void reject() override;

 private:
  QPushButton* AddButton(const char* name, const char* caption, void (FormCsvModel::*handler)());
  template <typename Handler>
  void Handle(Handler handler);
  void ShowModel();
  void ShowList(QListWidget* list, const QStringList& rows, int index, int top);

  FormCsvModel& model_;
  bool showing_ = false;
  QListWidget* fieldList_ = nullptr;
  QListWidget* csvList_ = nullptr;
  QListWidget* fileField_ = nullptr;
  QCheckBox* chkL1isField_ = nullptr;
};

}  // namespace sched
