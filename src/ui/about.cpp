#include "ui/about.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace sched {

GlobalVersion::GlobalVersion(const std::string& installDir, QWidget* parent) : QDialog(parent) {
  setObjectName("GlobalVersion");
  setWindowTitle("About Scheduler");
  auto* layout = new QVBoxLayout(this);
  auto* top = new QHBoxLayout();
  auto* icon = new QLabel(this);
  icon->setObjectName("Icon");
  icon->setPixmap(QIcon(":/icons/scheduler.png").pixmap(64, 64));
  icon->setAlignment(Qt::AlignTop);
  top->addWidget(icon);
  // The settings live where the user's settings store keeps its INI files.
  const QString settingsDir =
      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Sorvane";
  auto* text = new QLabel(
      QString("<h3>Scheduler %1</h3>"
              "<p>The PC companion of the Tarvex wrist organiser.</p>"
              "<p>Word list editor (mksbjct) %1<br>scltool %1<br>Qt %2</p>"
              "<p>Licensed under the %3.</p>"
              "<p>Installation folder: %4<br>Settings: %5</p>")
          .arg(SCHEDULER_VERSION, qVersion(), SCHEDULER_LICENCE,
               QString::fromStdString(installDir).toHtmlEscaped(), settingsDir.toHtmlEscaped()),
      this);
  text->setObjectName("Versions");
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  top->addWidget(text, 1);
  layout->addLayout(top);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  layout->addWidget(buttons);
}

}  // namespace sched
