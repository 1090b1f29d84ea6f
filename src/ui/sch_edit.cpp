#include "ui/sch_edit.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

#include "appointments/item_limits.h"
#include "appointments/texts.h"
#include "core/calendar.h"
#include "platform/key_codes.h"
#include "platform/qt/qt_date_formatter.h"
#include "store/sch_record.h"
#include "ui/screen_place.h"

namespace sched {
namespace {

namespace words = appointment_texts;

enum Row {
  kTitleRow,
  kPlaceRow,
  kHeadRow,
  kDateRow,
  kTimeRow,
  kAllDayRow,
  kAlarmRow,
  kPrivateRow,
  kMemoRow,
  kButtonRow
};
constexpr int kColumns = 4;  // labels, start, end, the small buttons
constexpr int kMemoLines = 5;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

// A spin box that does not step by itself: every step, by key, arrow or wheel, goes to `step`.
class ModelStepSpinBox : public QSpinBox {
 public:
  ModelStepSpinBox(std::function<void(int)> step, QWidget* parent)
      : QSpinBox(parent), step_(std::move(step)) {}

  void stepBy(int steps) override {
    interpretText();  // a value typed just before counts first
    step_(steps);
  }

 private:
  std::function<void(int)> step_;
};

QDateEdit* NewDateEdit(const QString& name, QWidget* parent) {
  auto* edit = new QDateEdit(parent);
  edit->setObjectName(name);
  edit->setCalendarPopup(true);
  edit->setDisplayFormat(ShortDateFormat());
  edit->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
  edit->setKeyboardTracking(false);  // a typed date counts once it is whole
  edit->calendarWidget()->setFirstDayOfWeek(Qt::Sunday);
  edit->calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  return edit;
}

QComboBox* NewEditableCombo(const QString& name, QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setObjectName(name);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  return combo;
}

// The caption of a row, whose mnemonic takes the focus to `buddy`.
void AddLabel(QGridLayout* grid, const char* text, QWidget* buddy, int row,
              Qt::Alignment align = Qt::AlignVCenter) {
  auto* label = new QLabel(text, buddy->parentWidget());
  label->setBuddy(buddy);
  grid->addWidget(label, row, 0, Qt::AlignLeft | align);
}

// A line's text is set only when it differs, so that typing keeps its cursor.
void ShowText(QLineEdit* edit, const std::string& text) {
  const QString shown = Q(text);
  if (edit->text() != shown) edit->setText(shown);
  edit->setModified(false);
}

// The memo box breaks its lines with LF alone.
void ShowText(QPlainTextEdit* edit, const std::string& text) {
  const QString shown = Q(StripCR(text));
  if (edit->toPlainText() == shown) return;
  edit->setPlainText(shown);
  edit->moveCursor(QTextCursor::End);
}

QStringList Items(const QComboBox* combo) {
  QStringList items;
  for (int i = 0; i < combo->count(); ++i) items << combo->itemText(i);
  return items;
}

}  // namespace

SchEdit::SchEdit(SchEditModel& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("SchEdit");
  auto* grid = new QGridLayout(this);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
  BuildTitleAndPlace(grid);
  BuildDatesAndTimes(grid);
  BuildAlarm(grid);
  BuildMemo(grid);
  BuildButtons(grid);

  text1_->setFocus();
  ShowModel();
  resize(sizeHint().width(), minimumSizeHint().height());
  CentreOnScreen(this);
}

void SchEdit::Run(SchEditModel& model, QWidget* parent) {
  SchEdit dialog(model, parent);
  dialog.exec();
}

void SchEdit::reject() {
  Finish(model_.SchEditCAN_Click());
}

void SchEdit::BuildTitleAndPlace(QGridLayout* grid) {
  text1_ = new QLineEdit(this);
  text1_->setObjectName("Text1");
  text1_->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
  connect(text1_, &QLineEdit::textEdited, this, [this](const QString& text) {
    model_.Text1_Change(text.toStdString());
    ShowModel();
  });
  AddLabel(grid, words::kTitle, text1_, kTitleRow);
  grid->addWidget(text1_, kTitleRow, 1, 1, 2);

  text3_ = new QLineEdit(this);
  text3_->setObjectName("Text3");
  connect(text3_, &QLineEdit::textEdited, this, [this](const QString& text) {
    model_.Text3_Change(text.toStdString());
    ShowModel();
  });
  AddLabel(grid, words::kPlace, text3_, kPlaceRow);
  grid->addWidget(text3_, kPlaceRow, 1, 1, 2);

  const char* const tips[] = {words::kSelSubjectTip, words::kSelPlaceTip};
  for (int i = 0; i < 2; ++i) {
    auto* button = new QToolButton(this);
    button->setObjectName(QString("SelSubject(%1)").arg(i));
    button->setText("...");
    button->setToolTip(tips[i]);
    connect(button, &QToolButton::clicked, this, [this, i] {
      model_.SelSubject_Click(i);
      ShowModel();
    });
    grid->addWidget(button, i == 0 ? kTitleRow : kPlaceRow, 3);
    selSubject_[static_cast<std::size_t>(i)] = button;
  }
}

void SchEdit::BuildDatesAndTimes(QGridLayout* grid) {
  grid->addWidget(new QLabel(words::kStart, this), kHeadRow, 1);
  grid->addWidget(new QLabel(words::kEnd, this), kHeadRow, 2);
  for (int i = 0; i < 2; ++i) {
    QDateEdit* date = NewDateEdit(QString("ImDate1(%1)").arg(i), this);
    connect(date, &QDateEdit::dateChanged, this, [this, i](QDate value) {
      model_.ImDate1_Change(i, CivilDate{value.year(), value.month(), value.day()});
      ShowModel();
    });
    grid->addWidget(date, kDateRow, 1 + i, Qt::AlignLeft);
    imDate1_[static_cast<std::size_t>(i)] = date;
  }
  AddLabel(grid, words::kDate, imDate1_[0], kDateRow);

  for (int i = 0; i < 2; ++i) {
    QComboBox* combo = NewEditableCombo(QString("Combo1(%1)").arg(i), this);
    combo->setCompleter(nullptr);  // times are typed whole, or picked
    combo->setMaxVisibleItems(12);
    for (const TimeComboItem& item : TimeComboItems()) combo->addItem(Q(item.text), item.minutes);
    connect(combo, &QComboBox::activated, this, [this, i](int index) {
      model_.Combo1_Click(i, index);
      ShowModel();
    });
    QLineEdit* line = combo->lineEdit();
    connect(line, &QLineEdit::editingFinished, this, [this, i, line] {
      if (!line->isModified()) return;
      model_.Combo1_Text(i, line->text().toStdString());
      ShowModel();
    });
    grid->addWidget(combo, kTimeRow, 1 + i, Qt::AlignLeft);
    combo1_[static_cast<std::size_t>(i)] = combo;
  }
  AddLabel(grid, words::kTime, combo1_[0], kTimeRow);
  // The four boxes of dates and times are alike in width.
  int width = 0;
  for (std::size_t i = 0; i < 2; ++i) {
    width = std::max({width, imDate1_[i]->sizeHint().width(), combo1_[i]->sizeHint().width()});
  }
  for (std::size_t i = 0; i < 2; ++i) {
    imDate1_[i]->setMinimumWidth(width);
    combo1_[i]->setMinimumWidth(width);
  }

  check3_ = new QCheckBox(words::kAllDay, this);
  check3_->setObjectName("Check3");
  connect(check3_, &QCheckBox::clicked, this, [this](bool on) {
    model_.Check3_Click(on);
    ShowModel();
  });
  grid->addWidget(check3_, kAllDayRow, 1);

  command1_ = new QPushButton(words::kRepeatButton, this);
  command1_->setObjectName("Command1");
  connect(command1_, &QPushButton::clicked, this, [this] {
    model_.Command1_Click();
    ShowModel();
  });
  grid->addWidget(command1_, kAllDayRow, 2, Qt::AlignLeft);
}

void SchEdit::BuildAlarm(QGridLayout* grid) {
  check1_ = new QCheckBox(words::kAlarm, this);
  check1_->setObjectName("Check1");
  connect(check1_, &QCheckBox::clicked, this, [this](bool on) {
    model_.Check1_Click(on);
    ShowModel();
  });
  grid->addWidget(check1_, kAlarmRow, 0);

  imNumber1_ = new ModelStepSpinBox(
      [this](int steps) {
        for (int n = 0; n < std::abs(steps); ++n)
          model_.ImNumber1_KeyDown(steps > 0 ? kKeyUp : kKeyDown);
        ShowModel();
      },
      this);
  imNumber1_->setObjectName("ImNumber1");
  imNumber1_->setRange(0, kMaxLead);
  imNumber1_->setAlignment(Qt::AlignRight);
  imNumber1_->setKeyboardTracking(false);
  connect(imNumber1_, &QSpinBox::valueChanged, this, [this](int value) {
    model_.ImNumber1_Change(value);
    ShowModel();
  });
  minutesLabel_ = new QLabel(words::kMinutesBefore, this);
  minutesLabel_->setBuddy(imNumber1_);
  auto* lead = new QHBoxLayout();
  lead->addWidget(imNumber1_);
  lead->addWidget(minutesLabel_);
  lead->addStretch();
  grid->addLayout(lead, kAlarmRow, 1);

  sound_ = NewEditableCombo("Sound", this);
  sound_->installEventFilter(this);
  connect(sound_, &QComboBox::editTextChanged, this, [this](const QString& name) {
    model_.Sound_Change(name.toStdString());
    ShowModel();
  });
  grid->addWidget(sound_, kAlarmRow, 2);

  preview_ = new QToolButton(this);
  preview_->setObjectName("cbtSNDprev");
  preview_->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
  preview_->setToolTip(words::kPreviewTip);
  connect(preview_, &QToolButton::clicked, this, [this] {
    model_.cbtSNDprev_Click();
    ShowModel();
  });
  grid->addWidget(preview_, kAlarmRow, 3);

  check2_ = new QCheckBox(words::kPrivate, this);
  check2_->setObjectName("Check2");
  connect(check2_, &QCheckBox::clicked, this, [this](bool on) {
    model_.Check2_Click(on);
    ShowModel();
  });
  grid->addWidget(check2_, kPrivateRow, 0);
}

void SchEdit::BuildMemo(QGridLayout* grid) {
  text2_ = new QPlainTextEdit(this);
  text2_->setObjectName("Text2");
  text2_->setTabChangesFocus(true);
  const int margins =
      2 * (text2_->frameWidth() + static_cast<int>(text2_->document()->documentMargin()));
  text2_->setMinimumHeight(fontMetrics().lineSpacing() * kMemoLines + margins);
  // The model cuts a memo that grows over its limit; the repaint shows the cut text.
  connect(text2_, &QPlainTextEdit::textChanged, this, [this] {
    model_.Text2_Change(LfToCrLf(text2_->toPlainText().toStdString()));
    ShowModel();
  });
  AddLabel(grid, words::kMemo, text2_, kMemoRow, Qt::AlignTop);
  grid->addWidget(text2_, kMemoRow, 1, 1, kColumns - 1);
  grid->setRowStretch(kMemoRow, 1);
}

void SchEdit::BuildButtons(QGridLayout* grid) {
  ok_ = new QPushButton(words::kOk, this);
  ok_->setObjectName("SchEditOK");
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, [this] { Finish(model_.SchEditOK_Click()); });
  cancel_ = new QPushButton(words::kCancel, this);
  cancel_->setObjectName("SchEditCAN");
  connect(cancel_, &QPushButton::clicked, this, [this] { Finish(model_.SchEditCAN_Click()); });

  auto* row = new QHBoxLayout();
  row->addStretch();
  row->addWidget(ok_);
  row->addWidget(cancel_);
  grid->addLayout(row, kButtonRow, 0, 1, kColumns);
}

bool SchEdit::eventFilter(QObject* watched, QEvent* event) {
  if (watched == sound_ && event->type() == QEvent::FocusOut && isVisible()) {
    // Its own drop-down and a switch to another window do not take the focus from the list.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
      const bool kept = model_.Sound_LostFocus();
      ShowModel();
      if (!kept) sound_->setFocus();
    }
  }
  return QDialog::eventFilter(watched, event);
}

void SchEdit::ShowModel() {
  {
    const std::array<QObject*, 12> inputs{text1_,      text3_,     text2_,     imDate1_[0],
                                          imDate1_[1], combo1_[0], combo1_[1], check3_,
                                          check1_,     imNumber1_, sound_,     check2_};
    const std::vector<QSignalBlocker> blockers(inputs.begin(), inputs.end());
    const SchEditControls& c = model_.Controls();
    setWindowTitle(Q(c.Caption));
    text1_->setMaxLength(c.Text1MaxLength);
    ShowText(text1_, c.Text1);
    text3_->setMaxLength(c.Text3MaxLength);
    ShowText(text3_, c.Text3);
    ShowText(text2_, c.Text2);
    for (QToolButton* button : selSubject_) button->setEnabled(c.SelSubjectEnabled);
    for (std::size_t i = 0; i < 2; ++i) {
      const std::optional<CivilDate>& date = c.ImDate1[i];
      if (date) imDate1_[i]->setDate(QDate(date->year, date->month, date->day));
    }
    imDate1_[1]->setEnabled(c.EndDateEnabled);
    ShowTimes();
    check3_->setChecked(c.Check3);
    command1_->setEnabled(c.Command1Enabled);
    ShowAlarm();
    check2_->setChecked(c.Check2);
  }
  if (const std::optional<EditFocus> focus = model_.TakeFocus()) FocusWidget(*focus)->setFocus();
}

void SchEdit::ShowTimes() {
  const SchEditControls& c = model_.Controls();
  for (std::size_t i = 0; i < 2; ++i) {
    QComboBox* combo = combo1_[i];
    if (combo->currentIndex() != c.Combo1[i]) combo->setCurrentIndex(c.Combo1[i]);
    ShowText(combo->lineEdit(), model_.TimeText(static_cast<int>(i)));
    combo->setEnabled(c.TimesEnabled);
  }
}

void SchEdit::ShowAlarm() {
  const SchEditControls& c = model_.Controls();
  check1_->setChecked(c.Check1);
  check1_->setEnabled(c.Check1Enabled);
  imNumber1_->setValue(c.ImNumber1);
  imNumber1_->setEnabled(c.ImNumber1Enabled);
  minutesLabel_->setEnabled(c.ImNumber1Enabled);
  QStringList names;
  for (const std::string& name : c.SoundList) names << Q(name);
  if (Items(sound_) != names) {
    sound_->clear();
    sound_->addItems(names);
  }
  ShowText(sound_->lineEdit(), c.SoundName);
  sound_->setEnabled(c.SoundEnabled);
  preview_->setEnabled(c.PreviewEnabled);
}

QWidget* SchEdit::FocusWidget(EditFocus focus) const {
  switch (focus) {
    case EditFocus::Text1: return text1_;
    case EditFocus::Text3: return text3_;
    case EditFocus::Text2: return text2_;
    case EditFocus::ImDate1Start: return imDate1_[0];
    case EditFocus::ImDate1End: return imDate1_[1];
    case EditFocus::Combo1Start: return combo1_[0];
    case EditFocus::Combo1End: return combo1_[1];
    case EditFocus::ImNumber1: return imNumber1_;
    case EditFocus::Sound: return sound_;
  }
  return text1_;
}

void SchEdit::Finish(bool closes) {
  if (!closes) {
    ShowModel();
    return;
  }
  // Cancel that answered Yes to saving wrote too: the result says what the model did.
  done(model_.Written() ? Accepted : Rejected);
}

}  // namespace sched
