#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "media/select_subject_model.h"

namespace sched {

// The word list dialog: shows its model and hands it every click, key and change of the text.
class SelectSubject : public QDialog {
  Q_OBJECT

 public:
  explicit SelectSubject(SelectSubjectModel& model, QWidget* parent = nullptr);

  // The close box and Escape act as Cancel.
  void reject() override;

 protected:
  // Enter in the list pastes the word.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowModel();
  // The text, its caret and selection as the model counts them: in characters.
  void SendEditString();

  SelectSubjectModel& model_;
  QLabel* fileName_ = nullptr;
  QListWidget* templateList_ = nullptr;
  QLineEdit* editString_ = nullptr;
  QPushButton* pasteBtn_ = nullptr;
  QPushButton* kickCtrator_ = nullptr;
  QPushButton* okBtn_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace sched
