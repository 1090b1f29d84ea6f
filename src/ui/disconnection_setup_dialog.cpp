#include "ui/disconnection_setup_dialog.h"

#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace sched {

void DisconnectionSetupDialog::ShowDisconnectionSetup(const std::string& deviceFolder) {
  const QString folder = QDir::toNativeSeparators(QString::fromStdString(deviceFolder));
  QDialog dialog(parent_);
  dialog.setObjectName("DisconnectionSetup");
  dialog.setWindowTitle("Disconnection Setup");
  auto* layout = new QVBoxLayout(&dialog);
  auto* about = new QLabel(
      "This Scheduler keeps the Tarvex as a folder on this PC. Opening from and saving to the "
      "Tarvex reads and writes the files in it, so there is no link to set up or to "
      "disconnect.",
      &dialog);
  about->setObjectName("About");
  about->setWordWrap(true);
  layout->addWidget(about);
  auto* where = new QLabel(folder, &dialog);
  where->setObjectName("DeviceFolder");
  where->setTextInteractionFlags(Qt::TextSelectableByMouse);
  where->setFrameShape(QFrame::StyledPanel);
  where->setMargin(4);
  layout->addWidget(where);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
  QPushButton* open = buttons->addButton("&Open Folder", QDialogButtonBox::ActionRole);
  open->setObjectName("OpenFolder");
  buttons->button(QDialogButtonBox::Close)->setObjectName("CloseButton");
  QObject::connect(open, &QPushButton::clicked, &dialog, [&deviceFolder] {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(deviceFolder)));
  });
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  layout->addWidget(buttons);
  dialog.setMinimumWidth(dialog.fontMetrics().horizontalAdvance(folder) + 60);
  dialog.exec();
}

}  // namespace sched
