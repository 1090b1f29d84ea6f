#pragma once

#include <string>
#include <vector>

#include "platform/fake/fake_messages.h"

namespace sched::testing {

// A message box as one line, "[title, icon, buttons] text", so that a test names the whole box
// it expects at once.
inline std::string MessageLine(const MessageRequest& m) {
  static const char* const kIcons[] = {"None", "Critical", "Question", "Exclamation",
                                       "Information"};
  static const char* const kButtons[] = {"Ok", "OkCancel", "YesNo", "YesNoCancel", "RetryCancel"};
  return "[" + m.title + ", " + kIcons[static_cast<int>(m.icon)] + ", " +
         kButtons[static_cast<int>(m.buttons)] + "] " + m.text;
}

// Every message box shown, a line each.
inline std::vector<std::string> MessageLines(const FakeMessages& messages) {
  std::vector<std::string> lines;
  for (const MessageRequest& m : messages.Shown()) lines.push_back(MessageLine(m));
  return lines;
}

// The boxes shown since the `seen` first ones, a line each joined by " | "; `seen` moves on.
inline std::string NewMessageLines(const FakeMessages& messages, std::size_t& seen) {
  std::string lines;
  for (; seen < messages.Shown().size(); ++seen) {
    lines += (lines.empty() ? "" : " | ") + MessageLine(messages.Shown()[seen]);
  }
  return lines;
}

}  // namespace sched::testing
