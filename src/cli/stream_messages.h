#pragma once

#include <ostream>

#include "platform/messages.h"

namespace sched {

// Message boxes for the command line: each text on a line of its own, answered with the box's
// first button, as a user who presses Enter does; a question of Yes and No takes `yesNo`.
class StreamMessages : public Messages {
 public:
  explicit StreamMessages(std::ostream& out, MsgAnswer yesNo = MsgAnswer::Yes)
      : out_(out), yesNo_(yesNo) {}

  MsgAnswer Show(const MessageRequest& request) override {
    out_ << request.text << '\n';
    ++shown_;
    switch (request.buttons) {
      case MsgButtons::YesNo: return yesNo_;
      case MsgButtons::YesNoCancel: return MsgAnswer::Yes;
      case MsgButtons::RetryCancel: return MsgAnswer::Retry;
      default: return MsgAnswer::Ok;
    }
  }
  int Shown() const { return shown_; }

 private:
  std::ostream& out_;
  MsgAnswer yesNo_;
  int shown_ = 0;
};

}  // namespace sched
