#include "ui/device_file_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace sched {

std::optional<std::string> DeviceFileDialog::ChooseDeviceFile(const DeviceFileRequest& request) {
  const bool save = request.mode == DeviceDialogMode::Save;
  QDialog dialog(parent_);
  dialog.setObjectName("DeviceFileDialog");
  dialog.setWindowTitle(QString::fromStdString(request.title));
  dialog.resize(420, 360);
  auto* layout = new QVBoxLayout(&dialog);
  auto* where = new QLabel(QString("Files on the Tarvex in %1")
                               .arg(QString::fromStdString(request.folder).toHtmlEscaped()),
                           &dialog);
  layout->addWidget(where);

  auto* files = new QListWidget(&dialog);
  files->setObjectName("DeviceFiles");
  for (const std::string& name : request.files) files->addItem(QString::fromStdString(name));
  layout->addWidget(files, 1);

  auto* form = new QFormLayout();
  auto* name = new QLineEdit(QString::fromStdString(request.proposal), &dialog);
  name->setObjectName("FileName");
  form->addRow("File &name:", name);
  layout->addLayout(form);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  buttons->button(QDialogButtonBox::Ok)->setText(save ? "&Save" : "&Open");
  layout->addWidget(buttons);

  const auto updateOk = [&] {
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!name->text().trimmed().isEmpty());
  };
  QObject::connect(files, &QListWidget::currentTextChanged, name, &QLineEdit::setText);
  QObject::connect(files, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
  QObject::connect(name, &QLineEdit::textChanged, &dialog, updateOk);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  if (!save && files->count() > 0 && request.proposal.empty()) files->setCurrentRow(0);
  updateOk();
  name->setFocus();

  if (dialog.exec() != QDialog::Accepted || name->text().trimmed().isEmpty()) return std::nullopt;
  return name->text().trimmed().toStdString();
}

}  // namespace sched
