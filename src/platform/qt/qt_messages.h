#pragma once

#include <QWidget>

#include "platform/messages.h"

namespace sched {

// Message boxes over the main window.
class QtMessages : public Messages {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }
  MsgAnswer Show(const MessageRequest& request) override;

 private:
  QWidget* parent_ = nullptr;
};

}  // namespace sched
