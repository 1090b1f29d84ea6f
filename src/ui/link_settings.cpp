#include "ui/link_settings.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/screen_place.h"

namespace sched {
namespace {

// The path and URL boxes show this many characters at least.
constexpr int kPathCharacters = 48;
// The boxes under a choice stand this many characters in from it.
constexpr int kIndentCharacters = 3;

QLineEdit* Box(const std::string& text, const char* name, QWidget* parent) {
  auto* box = new QLineEdit(QString::fromStdString(text), parent);
  box->setObjectName(name);
  return box;
}

}  // namespace

DataLinkSettings::DataLinkSettings(LinkSettingsModel& model, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("LinkSettings");
  setWindowTitle("Data Link Settings");
  auto* layout = new QVBoxLayout(this);
  auto* about = new QLabel(
      "Data Link exports the schedule to a calendar and imports from it: an iCalendar file, "
      "which calendar programs can keep or import and export, or a calendar on a CalDAV server.",
      this);
  about->setWordWrap(true);
  layout->addWidget(about);
  const QFontMetrics metrics = fontMetrics();
  const int indent = metrics.averageCharWidth() * kIndentCharacters;

  fileChoice_ = new QRadioButton("iCalendar &file:", this);
  fileChoice_->setObjectName("FileChoice");
  layout->addWidget(fileChoice_, 0, Qt::AlignLeft);
  calendarFile_ = Box(model_.CalendarFile(), "CalendarFile", this);
  calendarFile_->setMinimumWidth(std::max(metrics.horizontalAdvance(calendarFile_->text()),
                                          metrics.averageCharWidth() * kPathCharacters) +
                                 metrics.averageCharWidth() * 2);
  connect(calendarFile_, &QLineEdit::textEdited, this,
          [this](const QString& path) { model_.CalendarFile_Change(path.toStdString()); });
  browse_ = new QPushButton("&Browse...", this);
  browse_->setObjectName("Browse");
  connect(browse_, &QPushButton::clicked, this, [this] {
    model_.Browse_Click();
    calendarFile_->setText(QString::fromStdString(model_.CalendarFile()));
  });
  auto* fileRow = new QHBoxLayout();
  fileRow->addSpacing(indent);
  fileRow->addWidget(calendarFile_, 1);
  fileRow->addWidget(browse_);
  layout->addLayout(fileRow);

  serverChoice_ = new QRadioButton("Calendar &server (CalDAV):", this);
  serverChoice_->setObjectName("ServerChoice");
  layout->addWidget(serverChoice_, 0, Qt::AlignLeft);
  serverUrl_ = Box(model_.ServerUrl(), "ServerUrl", this);
  serverUrl_->setPlaceholderText("https://example.org/calendars/me/work/");
  connect(serverUrl_, &QLineEdit::textEdited, this,
          [this](const QString& url) { model_.ServerUrl_Change(url.trimmed().toStdString()); });
  serverUser_ = Box(model_.ServerUser(), "ServerUser", this);
  connect(serverUser_, &QLineEdit::textEdited, this,
          [this](const QString& user) { model_.ServerUser_Change(user.toStdString()); });
  test_ = new QPushButton("&Test Connection", this);
  test_->setObjectName("TestConnection");
  connect(test_, &QPushButton::clicked, this, [this] { model_.TestConnection_Click(); });
  auto* server = new QFormLayout();
  server->setContentsMargins(indent, 0, 0, 0);
  server->addRow("&URL:", serverUrl_);
  auto* userRow = new QHBoxLayout();
  userRow->addWidget(serverUser_, 1);
  userRow->addWidget(test_);
  auto* userLabel = new QLabel("User &name:", this);
  userLabel->setBuddy(serverUser_);
  server->addRow(userLabel, userRow);
  layout->addLayout(server);

  (model_.Kind() == LinkKind::kServer ? serverChoice_ : fileChoice_)->setChecked(true);
  connect(fileChoice_, &QRadioButton::toggled, this, [this](bool file) {
    model_.Kind_Change(file ? LinkKind::kFile : LinkKind::kServer);
    ShowKind();
  });
  ShowKind();

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
    QLineEdit* wrong = model_.Kind() == LinkKind::kFile ? calendarFile_
                       : serverUrl_->text().isEmpty() || !serverUser_->text().isEmpty()
                           ? serverUrl_
                           : serverUser_;
    wrong->setFocus();
    wrong->selectAll();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  CentreOnScreen(this);
}

void DataLinkSettings::ShowKind() {
  const bool file = model_.Kind() == LinkKind::kFile;
  calendarFile_->setEnabled(file);
  browse_->setEnabled(file);
  serverUrl_->setEnabled(!file);
  serverUser_->setEnabled(!file);
  test_->setEnabled(!file);
}

}  // namespace sched
