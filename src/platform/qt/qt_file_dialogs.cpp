#include "platform/qt/qt_file_dialogs.h"

#include <QDir>
#include <QFileDialog>

namespace sched {

QString QtNameFilter(const std::string& filter) {
  const QString text = QString::fromStdString(filter);
  const qsizetype bar = text.indexOf('|');
  if (bar < 0) return text;
  QString description = text.left(bar);
  const QString patterns = text.mid(bar + 1).replace(';', ' ');
  const qsizetype paren = description.indexOf('(');
  if (paren >= 0) description = description.left(paren).trimmed();
  return description + " (" + patterns + ")";
}

std::optional<std::string> QtFileDialogs::OpenFile(const FileDialogRequest& request) {
  return Run(request, false);
}

std::optional<std::string> QtFileDialogs::SaveFile(const FileDialogRequest& request) {
  return Run(request, true);
}

std::optional<std::string> QtFileDialogs::Run(const FileDialogRequest& request, bool save) {
  QFileDialog dialog(parent_);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilter(QtNameFilter(request.filter));
  const QString folder = QString::fromStdString(request.folder);
  if (!folder.isEmpty() && QDir(folder).exists()) dialog.setDirectory(folder);
  if (save) {
    dialog.setDefaultSuffix("scl");
    dialog.selectFile(QString::fromStdString(request.proposal));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().front().toStdString();
}

}  // namespace sched
