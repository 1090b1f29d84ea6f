#include "ui/form_dip.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include "appointments/texts.h"
#include "platform/qt/qt_date_formatter.h"
#include "ui/screen_place.h"

namespace sched {
namespace {

constexpr std::array<const char*, 3> kTypeCaptions = {
    "Add all import source data, after delete all current data.", "Add all import source data",
    "Add import source data(exept for the existing current data)"};
constexpr std::array<const char*, 3> kKikanCaptions = {"All &Data", "Setting &Week from today",
                                                       "Period"};

QDate QDateOf(const std::string& text) {
  const std::optional<CivilDate> date = ParseSlashedDate(text);
  return date ? QDate(date->year, date->month, date->day) : QDate();
}

}  // namespace

FormDip::FormDip(FormDipModel& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("FormDIP");
  setWindowTitle("Import");
  auto* layout = new QVBoxLayout(this);

  auto* types = new QGroupBox(this);
  auto* typeLayout = new QVBoxLayout(types);
  for (int i = 0; i < 3; ++i) {
    dipType_[static_cast<std::size_t>(i)] =
        new QRadioButton(kTypeCaptions[static_cast<std::size_t>(i)], types);
    dipType_[static_cast<std::size_t>(i)]->setObjectName(QString("DIPType(%1)").arg(i));
    typeLayout->addWidget(dipType_[static_cast<std::size_t>(i)]);
    connect(dipType_[static_cast<std::size_t>(i)], &QRadioButton::clicked, this,
            [this, i] { model_.DIPType_Click(i); });
  }
  layout->addWidget(types);

  auto* period = new QGroupBox("Setting period", this);
  auto* periodLayout = new QFormLayout(period);
  for (int i = 0; i < 3; ++i) {
    QRadioButton*& button = kikan_[static_cast<std::size_t>(i)];
    button = new QRadioButton(kKikanCaptions[static_cast<std::size_t>(i)], period);
    button->setObjectName(QString("Kikan(%1)").arg(i));
    connect(button, &QRadioButton::clicked, this, [this, i] {
      model_.Kikan_Click(i);
      ShowModel();
    });
  }
  kikanWeek_ = new QSpinBox(period);
  kikanWeek_->setObjectName("KikanWeek");
  kikanWeek_->setRange(1, 99);
  connect(kikanWeek_, &QSpinBox::valueChanged, this,
          [this](int weeks) { model_.KikanWeek_Change(weeks); });
  auto* weeks = new QHBoxLayout();
  weeks->addWidget(kikanWeek_);
  weeks->addWidget(new QLabel("(Max 99 Weeks)", period));
  periodLayout->addRow(kikan_[0]);
  periodLayout->addRow(kikan_[1]);
  auto* weeksLabel = new QLabel("&Weeks:", period);
  weeksLabel->setBuddy(kikanWeek_);
  periodLayout->addRow(weeksLabel, weeks);
  periodLayout->addRow(kikan_[2]);
  periodLayout->addRow("Start Date:", AddDateBox("KikanDate(0)", 0));
  periodLayout->addRow("End Date:", AddDateBox("KikanDate(1)", 1));
  layout->addWidget(period);

  auto* soundFrame = new QGroupBox("Select sound file", this);
  auto* soundLayout = new QFormLayout(soundFrame);
  sound_ = new QComboBox(soundFrame);
  sound_->setObjectName("Sound");
  sound_->setEditable(true);
  for (const std::string& name : model_.Controls().SoundList) {
    sound_->addItem(QString::fromStdString(name));
  }
  connect(sound_, &QComboBox::currentTextChanged, this,
          [this](const QString& name) { model_.Sound_Change(name.toStdString()); });
  auto* preview = new QToolButton(soundFrame);
  preview->setObjectName("cbtSNDprev");
  preview->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
  preview->setToolTip(appointment_texts::kPreviewTip);
  preview->setEnabled(model_.Controls().PreviewEnabled);
  connect(preview, &QToolButton::clicked, this, [this] { model_.cbtSNDprev_Click(); });
  auto* soundRow = new QHBoxLayout();
  soundRow->addWidget(sound_, 1);
  soundRow->addWidget(preview);
  soundLayout->addRow("Sound", soundRow);
  layout->addWidget(soundFrame);
  auto* alarm = new QGroupBox("Schedule alarm", this);
  auto* alarmLayout = new QVBoxLayout(alarm);
  alarmLayout->addWidget(
      new QLabel("Every imported alarm rings with the sound chosen above.", alarm));
  layout->addWidget(alarm);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok->setObjectName("cmdEnd(0)");
  ok->setDefault(true);
  QPushButton* cancel = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  cancel->setObjectName("cmdEnd(1)");
  connect(ok, &QPushButton::clicked, this, [this] {
    if (model_.cmdEnd_OK()) {
      accept();
      return;
    }
    kikanDate_[model_.Focus() == DipFocus::EndDate ? 1 : 0]->setFocus();
  });
  connect(cancel, &QPushButton::clicked, this, &FormDip::reject);
  connect(this, &QDialog::rejected, this, [this] { model_.cmdEnd_Cancel(); });
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  ShowModel();
  CentreOnScreen(this);
}

QDateEdit* FormDip::AddDateBox(const char* name, int index) {
  auto* box = new QDateEdit(this);
  box->setObjectName(name);
  box->setCalendarPopup(true);
  box->setDisplayFormat(ShortDateFormat());
  box->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
  connect(box, &QDateEdit::dateChanged, this, [this, index](const QDate& date) {
    model_.KikanDate_Change(index, SlashedDate({date.year(), date.month(), date.day()}));
    ShowModel();
  });
  kikanDate_[static_cast<std::size_t>(index)] = box;
  return box;
}

void FormDip::ShowModel() {
  const FormDipControls& c = model_.Controls();
  const QSignalBlocker blockWeek(kikanWeek_);
  dipType_[static_cast<std::size_t>(c.DIPType)]->setChecked(true);
  kikan_[static_cast<std::size_t>(c.Kikan)]->setChecked(true);
  kikanWeek_->setValue(c.KikanWeek);
  kikanWeek_->setEnabled(c.KikanWeekEnabled);
  for (std::size_t i = 0; i < 2; ++i) {
    const QSignalBlocker block(kikanDate_[i]);
    kikanDate_[i]->setDate(QDateOf(c.KikanDate[i]));
    kikanDate_[i]->setEnabled(c.KikanDateEnabled);
  }
  const QSignalBlocker blockSound(sound_);
  sound_->setCurrentText(QString::fromStdString(c.Sound));
}

}  // namespace sched
