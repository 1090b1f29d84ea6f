#include "ui/select_subject.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/key_codes.h"
#include "ui/screen_place.h"

namespace sched {
namespace {

constexpr const char* kCaption = "Select Word List";

// Characters of the head of `text` that takes `units` UTF-16 units, and back.
int CharactersOf(const QString& text, int units) {
  return static_cast<int>(text.left(units).toUcs4().size());
}
int UnitsOf(const QString& text, int characters) {
  int units = 0;
  for (int seen = 0; seen < characters && units < text.size(); ++seen) {
    units += text.at(units).isHighSurrogate() ? 2 : 1;
  }
  return units;
}

}  // namespace

SelectSubject::SelectSubject(SelectSubjectModel& model, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("SelectSubject");
  setWindowTitle(kCaption);
  auto* grid = new QGridLayout(this);

  fileName_ = new QLabel(this);
  fileName_->setObjectName("FileName");
  grid->addWidget(fileName_, 0, 0, 1, 2);

  templateList_ = new QListWidget(this);
  templateList_->setObjectName("TemplateList");
  templateList_->installEventFilter(this);
  templateList_->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
  auto* listLabel = new QLabel("&Word List", this);
  listLabel->setBuddy(templateList_);
  grid->addWidget(listLabel, 1, 0);
  grid->addWidget(templateList_, 2, 0);
  connect(templateList_, &QListWidget::currentRowChanged, this, [this](int row) {
    model_.TemplateList_Click(row);
    ShowModel();
  });
  connect(templateList_, &QListWidget::itemDoubleClicked, this, [this] {
    model_.TemplateList_DblClick();
    ShowModel();
  });

  pasteBtn_ = new QPushButton("&Select", this);
  pasteBtn_->setObjectName("PasteBtn");
  pasteBtn_->setAutoDefault(false);
  connect(pasteBtn_, &QPushButton::clicked, this, [this] {
    model_.PasteBtn_Click();
    ShowModel();
  });
  kickCtrator_ = new QPushButton("&Edit", this);
  kickCtrator_->setObjectName("KickCtrator");
  kickCtrator_->setAutoDefault(false);
  connect(kickCtrator_, &QPushButton::clicked, this, [this] { model_.KickCtrator_Click(); });
  auto* side = new QVBoxLayout();
  side->addWidget(pasteBtn_);
  side->addWidget(kickCtrator_);
  side->addStretch();
  grid->addLayout(side, 2, 1);

  editString_ = new QLineEdit(this);
  editString_->setObjectName("EditString");
  auto* editLabel = new QLabel("&Editing Strings", this);
  editLabel->setBuddy(editString_);
  grid->addWidget(editLabel, 3, 0);
  grid->addWidget(editString_, 4, 0, 1, 2);
  connect(editString_, &QLineEdit::textEdited, this, &SelectSubject::SendEditString);
  connect(editString_, &QLineEdit::cursorPositionChanged, this, &SelectSubject::SendEditString);
  connect(editString_, &QLineEdit::selectionChanged, this, &SelectSubject::SendEditString);

  okBtn_ = new QPushButton("OK", this);
  okBtn_->setObjectName("OkBtn");
  okBtn_->setDefault(true);
  connect(okBtn_, &QPushButton::clicked, this, [this] {
    model_.OkBtn_Click();
    accept();
  });
  cancel_ = new QPushButton("Cancel", this);
  cancel_->setObjectName("Cancel");
  connect(cancel_, &QPushButton::clicked, this, &SelectSubject::reject);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(okBtn_, QDialogButtonBox::AcceptRole);
  buttons->addButton(cancel_, QDialogButtonBox::RejectRole);
  grid->addWidget(buttons, 5, 0, 1, 2);

  model_.Form_Activate();
  ShowModel();
  templateList_->setFocus();
  CentreOnScreen(this);
}

void SelectSubject::reject() {
  model_.Cancel_Click();
  QDialog::reject();
}

bool SelectSubject::eventFilter(QObject* watched, QEvent* event) {
  if (watched == templateList_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) &&
        model_.TemplateList_KeyPress(kKeyEnter)) {
      ShowModel();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void SelectSubject::SendEditString() {
  const QString text = editString_->text();
  const bool selected = editString_->hasSelectedText();
  const int startUnits = selected ? editString_->selectionStart() : editString_->cursorPosition();
  const int endUnits = selected ? editString_->selectionEnd() : startUnits;
  const int start = CharactersOf(text, startUnits);
  model_.EditString_Change(text.toStdString(), start, CharactersOf(text, endUnits) - start);
}

void SelectSubject::ShowModel() {
  const SelectSubjectControls& c = model_.Controls();
  const QSignalBlocker listBlocker(templateList_);
  const QSignalBlocker editBlocker(editString_);
  fileName_->setText(QString::fromStdString(c.FileName));
  if (templateList_->count() != static_cast<int>(c.TemplateList.size())) {
    templateList_->clear();
    for (const std::string& word : c.TemplateList) {
      templateList_->addItem(QString::fromStdString(word));
    }
    if (templateList_->count() > 0) {
      templateList_->scrollToItem(templateList_->item(c.TopIndex),
                                  QAbstractItemView::PositionAtTop);
    }
  }
  templateList_->setCurrentRow(c.ListIndex);
  pasteBtn_->setEnabled(c.PasteBtnEnabled);
  const QString text = QString::fromStdString(c.EditString);
  if (editString_->text() != text) editString_->setText(text);
  const int start = UnitsOf(text, c.SelStart);
  const int end = UnitsOf(text, c.SelStart + c.SelLength);
  if (end > start) {
    editString_->setSelection(start, end - start);
  } else {
    editString_->setCursorPosition(start);
  }
}

}  // namespace sched
