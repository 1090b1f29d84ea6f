#include "platform/qt/qt_messages.h"

#include <QMessageBox>

namespace sched {
namespace {

QMessageBox::Icon IconOf(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Critical: return QMessageBox::Critical;
    case MsgIcon::Question: return QMessageBox::Question;
    case MsgIcon::Exclamation: return QMessageBox::Warning;
    case MsgIcon::Information: return QMessageBox::Information;
    case MsgIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgButtons::RetryCancel: return QMessageBox::Retry | QMessageBox::Cancel;
    case MsgButtons::Ok: break;
  }
  return QMessageBox::Ok;
}

MsgAnswer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Cancel: return MsgAnswer::Cancel;
    case QMessageBox::Yes: return MsgAnswer::Yes;
    case QMessageBox::No: return MsgAnswer::No;
    case QMessageBox::Retry: return MsgAnswer::Retry;
    default: return MsgAnswer::Ok;
  }
}

}  // namespace

MsgAnswer QtMessages::Show(const MessageRequest& request) {
  QString text = QString::fromStdString(request.text);
  text.replace("\r\n", "\n");
  QMessageBox box(IconOf(request.icon), QString::fromStdString(request.title), text,
                  ButtonsOf(request.buttons), parent_);
  // Closing the box with Escape or its close box is a Cancel where there is one, else the
  // box's only sensible answer.
  if (request.buttons == MsgButtons::YesNo) box.setEscapeButton(QMessageBox::No);
  return AnswerOf(box.exec());
}

}  // namespace sched
