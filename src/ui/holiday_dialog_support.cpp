#include "ui/holiday_dialog_support.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "holidays/holiday_dialog_host.h"
#include "ui/rgb_color.h"

namespace sched {
namespace {

constexpr std::uint32_t kSystemColor = 0x80000000;
constexpr std::uint32_t kSystemButtonText = 0x12;

// The window system's code of the keys the forms react to; 0 for the others.
int KeyCodeOf(int qtKey) {
  switch (qtKey) {
    case Qt::Key_Left: return kKeyLeft;
    case Qt::Key_Right: return kKeyRight;
    case Qt::Key_F1: return kKeyF1;
    default: return 0;
  }
}

}  // namespace

QColor FormColor(std::uint32_t color, const QPalette& palette) {
  if ((color & kSystemColor) != 0) {
    return (color & 0xFF) == kSystemButtonText ? palette.color(QPalette::ButtonText)
                                               : palette.color(QPalette::WindowText);
  }
  return RgbColor(color);
}

OkCancelButtons AddOkCancel(QDialog* dialog, QBoxLayout* layout, const char* okName,
                            const char* okText, std::function<void()> ok, const char* cancelName,
                            const char* cancelText, std::function<void()> cancel) {
  auto* row = new QHBoxLayout();
  row->addStretch();
  OkCancelButtons buttons{new QPushButton(okText, dialog), new QPushButton(cancelText, dialog)};
  buttons.ok->setObjectName(okName);
  buttons.ok->setDefault(true);
  buttons.cancel->setObjectName(cancelName);
  row->addWidget(buttons.ok);
  row->addWidget(buttons.cancel);
  layout->addLayout(row);
  QObject::connect(buttons.ok, &QPushButton::clicked, dialog, [dialog, ok = std::move(ok)] {
    ok();
    dialog->accept();
  });
  QObject::connect(buttons.cancel, &QPushButton::clicked, dialog,
                   [dialog, cancel = std::move(cancel)] {
                     cancel();
                     dialog->QDialog::reject();
                   });
  return buttons;
}

KeyDownFilter::KeyDownFilter(QWidget* window, std::function<bool(int)> keyDown)
    : QObject(window), keyDown_(std::move(keyDown)) {
  window->installEventFilter(this);
  for (QWidget* child : window->findChildren<QWidget*>()) child->installEventFilter(this);
}

bool KeyDownFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int code = KeyCodeOf(static_cast<QKeyEvent*>(event)->key());
    if (code != 0 && keyDown_(code)) return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace sched
