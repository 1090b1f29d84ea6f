#pragma once

#include "alarms/notice_gate.h"
#include "platform/messages.h"

namespace sched {

// Message boxes that hold alarm notices back while they are open, so that no notice window
// opens under one.
class HeldMessages final : public Messages {
 public:
  HeldMessages(Messages& messages, NoticeGate& gate) : messages_(messages), gate_(gate) {}
  MsgAnswer Show(const MessageRequest& request) override {
    const NoticesHeldWhile held(gate_);
    return messages_.Show(request);
  }

 private:
  Messages& messages_;
  NoticeGate& gate_;
};

}  // namespace sched
