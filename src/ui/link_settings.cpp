#include "ui/link_settings.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/screen_place.h"

namespace sched {
namespace {

// The path box shows this many characters of a path at least.
constexpr int kPathCharacters = 48;

}  // namespace

DataLinkSettings::DataLinkSettings(LinkSettingsModel& model, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("LinkSettings");
  setWindowTitle("Data Link Settings");
  auto* layout = new QVBoxLayout(this);
  auto* about = new QLabel(
      "Data Link exports the schedule to this iCalendar file and imports from it. Calendar "
      "programs can keep a calendar in such a file, or import and export one.",
      this);
  about->setWordWrap(true);
  layout->addWidget(about);

  auto* label = new QLabel("Calendar &file:", this);
  layout->addWidget(label);
  calendarFile_ = new QLineEdit(QString::fromStdString(model_.CalendarFile()), this);
  calendarFile_->setObjectName("CalendarFile");
  const QFontMetrics metrics = calendarFile_->fontMetrics();
  calendarFile_->setMinimumWidth(std::max(metrics.horizontalAdvance(calendarFile_->text()),
                                          metrics.averageCharWidth() * kPathCharacters) +
                                 metrics.averageCharWidth() * 2);
  label->setBuddy(calendarFile_);
  connect(calendarFile_, &QLineEdit::textEdited, this,
          [this](const QString& path) { model_.CalendarFile_Change(path.toStdString()); });
  auto* browse = new QPushButton("&Browse...", this);
  browse->setObjectName("Browse");
  connect(browse, &QPushButton::clicked, this, [this] {
    model_.Browse_Click();
    calendarFile_->setText(QString::fromStdString(model_.CalendarFile()));
  });
  auto* row = new QHBoxLayout();
  row->addWidget(calendarFile_, 1);
  row->addWidget(browse);
  layout->addLayout(row);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok->setObjectName("OK");
  ok->setDefault(true);
  buttons->addButton("Cancel", QDialogButtonBox::RejectRole)->setObjectName("Cancel");
  connect(ok, &QPushButton::clicked, this, [this] {
    if (model_.OK_Click()) {
      accept();
      return;
    }
    calendarFile_->setFocus();
    calendarFile_->selectAll();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  CentreOnScreen(this);
}

}  // namespace sched
