#include "ui/repeat.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "appointments/repeat_caption.h"
#include "appointments/texts.h"
#include "platform/key_codes.h"
#include "ui/screen_place.h"

namespace sched {

namespace t = appointment_texts;

namespace {

// Wide enough for any number a user may type; the model tells the valid range.
constexpr int kTypedMax = 999;

// Keeps a widget's place in the layout while it is hidden, so the dialog does not jump.
void KeepPlaceWhenHidden(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

QString SentenceText(const std::string& sentence) {
  return QString::fromStdString(sentence).replace('\r', '\n');
}

}  // namespace

RepeatNumberBox::RepeatNumberBox(QWidget* parent) : QSpinBox(parent) {
  setRange(0, kTypedMax);
  setKeyboardTracking(false);
  setAlignment(Qt::AlignRight);
}

void RepeatNumberBox::Show(const RepeatNumber& number) {
  const QSignalBlocker block(this);
  shown_ = number;
  setValue(number.value);
}

void RepeatNumberBox::stepBy(int steps) {
  emit stepped(steps);
}

QAbstractSpinBox::StepEnabled RepeatNumberBox::stepEnabled() const {
  StepEnabled enabled = StepNone;
  if (shown_.value < shown_.max) enabled |= StepUpEnabled;
  if (shown_.value > shown_.min) enabled |= StepDownEnabled;
  return enabled;
}

void RepeatNumberBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up: emit keyDown(kKeyUp); break;
    case Qt::Key_Down: emit keyDown(kKeyDown); break;
    case Qt::Key_Return:
    case Qt::Key_Enter: emit keyDown(kKeyEnter); break;
    default: QSpinBox::keyPressEvent(event); return;
  }
  event->accept();
}

RepeatForm::RepeatForm(RepeatModel& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("Repeat");
  setWindowTitle(t::kRepeatCaption);

  auto* layout = new QVBoxLayout(this);
  auto* rule = new QHBoxLayout();
  auto* options = new QVBoxLayout();
  BuildOptions(options);
  rule->addLayout(options);
  auto* line = new QFrame(this);
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  rule->addWidget(line);
  rule->addWidget(BuildFrame1(), 1);
  layout->addLayout(rule);

  label2_ = new QLabel(this);
  label2_->setObjectName("Label2");
  label2_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  label2_->setMargin(6);
  layout->addWidget(label2_);

  auto* buttons = new QHBoxLayout();
  buttons->addStretch();
  okButton_ = new QPushButton(t::kOk, this);
  okButton_->setObjectName("OKButton");
  okButton_->setDefault(true);
  cancelButton_ = new QPushButton(t::kCancel, this);
  cancelButton_->setObjectName("CancelButton");
  buttons->addWidget(okButton_);
  buttons->addWidget(cancelButton_);
  layout->addLayout(buttons);
  connect(okButton_, &QPushButton::clicked, this, [this] { OK_Click(); });
  connect(cancelButton_, &QPushButton::clicked, this, &RepeatForm::reject);

  layout->setSizeConstraint(QLayout::SetFixedSize);
  ReserveSentenceRoom();
  ShowModel();
  CentreOnScreen(this);
}

// Room for the longest sentence, so that the dialog keeps its size whatever the rule.
void RepeatForm::ReserveSentenceRoom() {
  const std::string& date = model_.Controls().Label6[0];
  // The last Wednesday in December, every 11 months: the longest names and number.
  const std::optional<std::string> longest = BuildRepeatCaption(
      kOptionYearlyWeekday,
      {std::to_string(MaxRepeatInterval(RepeatUnit::Month)), date, date, 4, 3, 1});
  const int edge = 2 * (label2_->margin() + label2_->frameWidth());
  label2_->setMinimumSize(label2_->fontMetrics().size(0, SentenceText(longest.value_or(""))) +
                          QSize(edge, edge));
}

void RepeatForm::BuildOptions(QVBoxLayout* layout) {
  auto* group = new QButtonGroup(this);
  for (int i = 0; i < static_cast<int>(option1_.size()); ++i) {
    auto* button = new QRadioButton(t::kOptions[static_cast<std::size_t>(i)], this);
    button->setObjectName(QString("Option1(%1)").arg(i));
    group->addButton(button, i);
    layout->addWidget(button);
    option1_[static_cast<std::size_t>(i)] = button;
  }
  layout->addStretch();
  connect(group, &QButtonGroup::idClicked, this,
          [this](int id) { Handle([this, id] { model_.Option1_Click(id); }); });
}

QFrame* RepeatForm::BuildFrame1() {
  frame1_ = new QFrame(this);
  frame1_->setObjectName("Frame1");
  KeepPlaceWhenHidden(frame1_);
  auto* grid = new QGridLayout(frame1_);
  grid->setContentsMargins(0, 0, 0, 0);

  auto* byWhat = new QHBoxLayout();
  auto* group = new QButtonGroup(frame1_);
  for (int i = 0; i < static_cast<int>(option2_.size()); ++i) {
    auto* button = new QRadioButton(t::kOption2[static_cast<std::size_t>(i)], frame1_);
    button->setObjectName(QString("Option2(%1)").arg(i));
    KeepPlaceWhenHidden(button);
    group->addButton(button, i);
    byWhat->addWidget(button);
    option2_[static_cast<std::size_t>(i)] = button;
  }
  connect(group, &QButtonGroup::idClicked, this,
          [this](int id) { Handle([this, id] { model_.Option2_Click(id); }); });

  combo2_ = new QComboBox(frame1_);
  combo2_->setObjectName("Combo2");
  for (std::size_t i = 0; i < t::kOrdinals.size(); ++i) {
    combo2_->addItem(t::kOrdinals[i], t::kOrdinalData[i]);
  }
  combo1_ = new QComboBox(frame1_);
  combo1_->setObjectName("Combo1");
  for (std::size_t i = 0; i < t::kWeekdays.size(); ++i) {
    combo1_->addItem(t::kWeekdays[i], static_cast<int>(i));
  }
  for (QComboBox* combo : {combo2_, combo1_}) {
    KeepPlaceWhenHidden(combo);
    byWhat->addWidget(combo);
  }
  byWhat->addStretch();
  connect(combo1_, &QComboBox::activated, this,
          [this](int index) { Handle([this, index] { model_.Combo1_Click(index); }); });
  connect(combo2_, &QComboBox::activated, this,
          [this](int index) { Handle([this, index] { model_.Combo2_Click(index); }); });
  grid->addLayout(byWhat, 0, 0, 1, 3);

  grid->addWidget(new QLabel(t::kRepeatEvery, frame1_), 1, 0);
  imNumber2_ = AddNumber(RepeatNumberField::ImNumber2, "ImNumber2");
  grid->addWidget(imNumber2_, 1, 1);
  label4_ = new QLabel(frame1_);
  label4_->setObjectName("Label4");
  grid->addWidget(label4_, 1, 2);
  imNumber1_ = AddNumber(RepeatNumberField::ImNumber1, "ImNumber1");
  grid->addWidget(imNumber1_, 2, 1);
  label5_ = new QLabel(frame1_);
  label5_->setObjectName("Label5");
  grid->addWidget(label5_, 2, 2);

  const char* captions[] = {t::kStart, t::kEnd};
  for (int i = 0; i < 2; ++i) {
    auto* label = new QLabel(frame1_);
    label->setObjectName(QString("Label6(%1)").arg(i));
    grid->addWidget(new QLabel(captions[i], frame1_), 3 + i, 0);
    grid->addWidget(label, 3 + i, 1, 1, 2);
    label6_[static_cast<std::size_t>(i)] = label;
  }
  grid->setColumnStretch(2, 1);
  return frame1_;
}

RepeatNumberBox* RepeatForm::AddNumber(RepeatNumberField field, const char* name) {
  auto* box = new RepeatNumberBox(frame1_);
  box->setObjectName(name);
  connect(box, &RepeatNumberBox::stepped, this, [this, field](int steps) {
    if (CommitTyped(field)) Handle([this, field, steps] { model_.UpDown_Click(field, steps); });
  });
  connect(box, &RepeatNumberBox::keyDown, this, [this, field](int key) {
    if (CommitTyped(field)) Handle([this, field, key] { model_.ImNumber_KeyDown(field, key); });
  });
  connect(box, &QSpinBox::editingFinished, this, [this, field] { CommitTyped(field); });
  return box;
}

template <typename Handler>
void RepeatForm::Handle(Handler handler) {
  if (handling_) return;
  handling_ = true;
  handler();
  ShowModel();
  handling_ = false;
}

bool RepeatForm::CommitTyped(RepeatNumberField field) {
  RepeatNumberBox* box = Box(field);
  box->interpretText();
  const int typed = box->value();
  const auto held = [&] {
    const RepeatControls& c = model_.Controls();
    return field == RepeatNumberField::ImNumber1 ? c.ImNumber1.value : c.ImNumber2.value;
  };
  if (typed == held()) return true;
  Handle([this, field, typed] { model_.ImNumber_Change(field, typed); });
  return typed == held();
}

void RepeatForm::OK_Click() {
  if (!CommitTyped(RepeatNumberField::ImNumber1) || !CommitTyped(RepeatNumberField::ImNumber2)) {
    return;
  }
  bool closes = false;
  Handle([this, &closes] { closes = model_.OKButton_Click(); });
  if (closes) accept();
}

void RepeatForm::reject() {
  model_.CancelButton_Click();
  QDialog::reject();
}

void RepeatForm::ShowModel() {
  const RepeatControls& c = model_.Controls();
  for (int i = 0; i < static_cast<int>(option1_.size()); ++i) {
    option1_[static_cast<std::size_t>(i)]->setEnabled(model_.Option1Enabled(i));
  }
  option1_[static_cast<std::size_t>(c.Option1)]->setChecked(true);
  frame1_->setVisible(c.Frame1Visible);
  for (QRadioButton* button : option2_) button->setVisible(c.Option2Visible);
  option2_[static_cast<std::size_t>(c.Option2)]->setChecked(true);
  for (QComboBox* combo : {combo1_, combo2_}) {
    combo->setVisible(c.Option2Visible);
    combo->setEnabled(c.CombosEnabled);
  }
  {
    const QSignalBlocker block1(combo1_);
    const QSignalBlocker block2(combo2_);
    combo1_->setCurrentIndex(c.Combo1);
    combo2_->setCurrentIndex(c.Combo2);
  }
  imNumber1_->Show(c.ImNumber1);
  imNumber2_->Show(c.ImNumber2);
  label4_->setText(QString::fromStdString(c.Label4));
  label5_->setText(QString::fromStdString(c.Label5));
  for (std::size_t i = 0; i < label6_.size(); ++i) {
    label6_[i]->setText(QString::fromStdString(c.Label6[i]));
  }
  label2_->setText(SentenceText(c.Label2));
  if (const std::optional<RepeatNumberField> field = model_.TakeFocus()) {
    Box(*field)->setFocus();
    Box(*field)->selectAll();
  }
}

RepeatNumberBox* RepeatForm::Box(RepeatNumberField field) const {
  return field == RepeatNumberField::ImNumber1 ? imNumber1_ : imNumber2_;
}

}  // namespace sched
