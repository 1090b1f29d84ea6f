#include "mksbjct/mk_sbjct.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "media/texts.h"
#include "media/word_list.h"

namespace sched {

MkSbjct::MkSbjct(WordListEditorModel& model, HelpBrowser& help, Messages& messages, QWidget* parent)
    : QWidget(parent), model_(model), help_(help), messages_(messages) {
  setObjectName("MkSbjct");
  setWindowTitle(media_texts::kEditorCaption);
  auto* grid = new QGridLayout(this);

  listCombo_ = new QComboBox(this);
  listCombo_->setObjectName("ListCombo");
  for (const std::string& title : model_.Controls().ListTitles) {
    listCombo_->addItem(QString::fromStdString(title));
  }
  auto* listLabel = new QLabel("&List:", this);
  listLabel->setBuddy(listCombo_);
  grid->addWidget(listLabel, 0, 0);
  grid->addWidget(listCombo_, 0, 1, 1, 2);
  connect(listCombo_, &QComboBox::activated, this, [this](int index) {
    model_.ListCombo_Click(index);
    ShowModel();
  });

  wordList_ = new QListWidget(this);
  wordList_->setObjectName("WordList");
  wordList_->setMinimumHeight(fontMetrics().lineSpacing() * 12);
  auto* wordsLabel = new QLabel("&Words:", this);
  wordsLabel->setBuddy(wordList_);
  grid->addWidget(wordsLabel, 1, 0, Qt::AlignTop);
  grid->addWidget(wordList_, 1, 1);
  connect(wordList_, &QListWidget::currentRowChanged, this, [this](int row) {
    model_.WordList_Click(row);
    ShowModel();
  });

  auto* side = new QVBoxLayout();
  add_ = NewButton("&Add", "Add", &WordListEditorModel::Add_Click);
  change_ = NewButton("C&hange", "Change", &WordListEditorModel::Change_Click);
  remove_ = NewButton("&Remove", "Remove", &WordListEditorModel::Remove_Click);
  up_ = NewButton("&Up", "Up", &WordListEditorModel::Up_Click);
  down_ = NewButton("&Down", "Down", &WordListEditorModel::Down_Click);
  for (QPushButton* button : {add_, change_, remove_, up_, down_}) side->addWidget(button);
  side->addStretch();
  grid->addLayout(side, 1, 2);

  wordText_ = new QLineEdit(this);
  wordText_->setObjectName("WordText");
  auto* textLabel = new QLabel("W&ord:", this);
  textLabel->setBuddy(wordText_);
  grid->addWidget(textLabel, 2, 0);
  grid->addWidget(wordText_, 2, 1);
  connect(wordText_, &QLineEdit::textEdited, this, [this](const QString& text) {
    model_.WordText_Change(text.toStdString());
    ShowModel();
  });
  connect(wordText_, &QLineEdit::returnPressed, this, [this] {
    model_.Add_Click();
    ShowModel();
  });

  save_ = new QPushButton("&Save", this);
  save_->setObjectName("Save");
  connect(save_, &QPushButton::clicked, this, [this] {
    model_.Save_Click();
    ShowModel();
  });
  auto* close = new QPushButton("&Close", this);
  close->setObjectName("Close");
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  auto* bottom = new QHBoxLayout();
  bottom->addStretch();
  bottom->addWidget(save_);
  bottom->addWidget(close);
  grid->addLayout(bottom, 3, 0, 1, 3);

  ShowModel();
  wordText_->setFocus();
}

QPushButton* MkSbjct::NewButton(const char* text, const char* name,
                                void (WordListEditorModel::*click)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this, [this, click] {
    (model_.*click)();
    ShowModel();
  });
  return button;
}

void MkSbjct::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_F1) {
    QWidget::keyPressEvent(event);
    return;
  }
  ShowManualPage(help_, messages_, "word-lists.html#editor");
}

void MkSbjct::closeEvent(QCloseEvent* event) {
  if (model_.Form_QueryUnload()) {
    event->accept();
  } else {
    event->ignore();
    ShowModel();
  }
}

void MkSbjct::ShowModel() {
  const WordListEditorControls& c = model_.Controls();
  const QSignalBlocker comboBlocker(listCombo_);
  const QSignalBlocker listBlocker(wordList_);
  listCombo_->setCurrentIndex(c.ListIndex);
  QStringList words;
  for (const std::string& word : c.Words) words << QString::fromStdString(word);
  QStringList shown;
  for (int i = 0; i < wordList_->count(); ++i) shown << wordList_->item(i)->text();
  if (shown != words) {
    wordList_->clear();
    wordList_->addItems(words);
  }
  wordList_->setCurrentRow(c.WordIndex);
  const QString text = QString::fromStdString(c.WordText);
  if (wordText_->text() != text) wordText_->setText(text);
  add_->setEnabled(c.AddEnabled);
  change_->setEnabled(c.ChangeEnabled);
  remove_->setEnabled(c.RemoveEnabled);
  up_->setEnabled(c.UpEnabled);
  down_->setEnabled(c.DownEnabled);
  save_->setEnabled(c.SaveEnabled);
  setWindowTitle(QString(media_texts::kEditorCaption) + (c.Dirty ? " *" : ""));
}

}  // namespace sched
