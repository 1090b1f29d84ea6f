#pragma once

#include <deque>
#include <vector>

#include "platform/messages.h"

namespace sched {

// Records every message box and answers with the queued answers, then with the first button.
class FakeMessages : public Messages {
 public:
  void QueueAnswer(MsgAnswer answer) { answers_.push_back(answer); }
  const std::vector<MessageRequest>& Shown() const { return shown_; }

  MsgAnswer Show(const MessageRequest& request) override {
    shown_.push_back(request);
    if (!answers_.empty()) {
      const MsgAnswer answer = answers_.front();
      answers_.pop_front();
      return answer;
    }
    switch (request.buttons) {
      case MsgButtons::YesNo:
      case MsgButtons::YesNoCancel: return MsgAnswer::Yes;
      case MsgButtons::RetryCancel: return MsgAnswer::Retry;
      default: return MsgAnswer::Ok;
    }
  }

 private:
  std::deque<MsgAnswer> answers_;
  std::vector<MessageRequest> shown_;
};

}  // namespace sched
