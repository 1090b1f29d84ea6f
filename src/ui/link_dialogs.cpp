#include "ui/link_dialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>

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
  bool ok = false;
  // Without an owner: while the link works the main window, and all it owns, takes no input.
  const QString password = QInputDialog::getText(
      nullptr, "Scheduler", QString::fromStdString("Password for " + account + ":"),
      QLineEdit::Password, "", &ok);
  if (!ok) return std::nullopt;
  return password.toStdString();
}

void QtLinkDialogs::EnableMainWindow(bool enabled) {
  s_.window->setEnabled(enabled);
  QApplication::processEvents();
}

}  // namespace sched
