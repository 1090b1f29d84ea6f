#include "platform/std/console.h"

#include <cstdio>

namespace sched {

MsgAnswer StreamMessages::Show(const MessageRequest& request) {
  out_ << request.text << '\n';
  switch (request.buttons) {
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel: return MsgAnswer::Yes;
    case MsgButtons::RetryCancel: return MsgAnswer::Retry;
    default: return MsgAnswer::Ok;
  }
}

std::string IsoDateFormatter::ShortDate(int year, int month, int day) const {
  char text[16];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", year % 10000, month % 100, day % 100);
  return text;
}

}  // namespace sched
