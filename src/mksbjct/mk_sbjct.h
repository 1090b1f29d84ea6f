#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include "media/word_list_editor_model.h"
#include "platform/help_browser.h"

namespace sched {

// The word list editor's window: shows its model and hands it every click and change.
class MkSbjct : public QWidget {
  Q_OBJECT

 public:
  // F1 shows the editor's page of the manual through `help`; `messages` says when it cannot.
  MkSbjct(WordListEditorModel& model, HelpBrowser& help, Messages& messages,
          QWidget* parent = nullptr);

 protected:
  // Unsaved changes are offered for saving before the window closes.
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* NewButton(const char* text, const char* name, void (WordListEditorModel::*click)());
  void ShowModel();

  WordListEditorModel& model_;
  HelpBrowser& help_;
  Messages& messages_;
  QComboBox* listCombo_ = nullptr;
  QListWidget* wordList_ = nullptr;
  QLineEdit* wordText_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* change_ = nullptr;
  QPushButton* remove_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace sched
