#include "ui/link_dialogs.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/form_dip.h"
#include "ui/link_settings.h"

namespace sched {

std::optional<ImportOptions> QtLinkDialogs::ShowFormDip() {
  const DateTime now = s_.clock.Now();
  FormDipModel model(s_.settings, s_.messages, s_.sounds(), {now.year, now.month, now.day},
                     s_.media);
  model.Form_Load();
  FormDip dialog(model, s_.window);
  dialog.exec();
  if (model.Cancelled()) return std::nullopt;
  return model.Answers();
}

void QtLinkDialogs::ShowLinkSettings() {
  LinkSettingsModel model({s_.settings, s_.messages, s_.fileDialogs, s_.pimDataDir, s_.probe});
  model.Form_Load();
  DataLinkSettings dialog(model, s_.window);
  dialog.exec();
}

std::optional<std::string> QtLinkDialogs::AskServerPassword(const std::string& account) {
  // Without an owner: while the link works the main window, and all it owns, takes no input.
  QDialog dialog;
  dialog.setObjectName("ServerPassword");
  dialog.setWindowTitle("Scheduler");
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new QLabel(QString::fromStdString("&Password for " + account + ":"), &dialog);
  auto* password = new QLineEdit(&dialog);
  password->setObjectName("Password");
  password->setEchoMode(QLineEdit::Password);
  label->setBuddy(password);
  layout->addWidget(label);
  layout->addWidget(password);
  auto* buttons = new QDialogButtonBox(&dialog);
  QPushButton* ok = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok->setObjectName("OK");
  ok->setDefault(true);
  buttons->addButton("Cancel", QDialogButtonBox::RejectRole)->setObjectName("Cancel");
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  layout->addWidget(buttons);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return password->text().toStdString();
}

void QtLinkDialogs::EnableMainWindow(bool enabled) {
  s_.window->setEnabled(enabled);
  QApplication::processEvents();
}

}  // namespace sched
