#pragma once

#include <string>

namespace sched {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class MsgAnswer { Ok, Cancel, Yes, No, Retry };

// One message box as the logic asks for it; the window system shows it and gives the answer.
struct MessageRequest {
  std::string text;
  std::string title;
  MsgIcon icon = MsgIcon::Exclamation;
  MsgButtons buttons = MsgButtons::Ok;
};

class Messages {
 public:
  virtual ~Messages() = default;
  virtual MsgAnswer Show(const MessageRequest& request) = 0;
};

}  // namespace sched
