#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/fake/fake_messages.h"
#include "tests/support/trace.h"

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

// The message boxes of a trace whose State holds `messages` (a FakeMessages) and `seen`:
// "answer yes|no|cancel" queues the answer to the next question, "is messages" gives the boxes
// shown since the last look, and at the end of a case every box shown must have been looked at.
template <class State>
void AddMessageWords(Trace<State>& t) {
  t.steps["answer"] = [](State& s, const CaseRow& row) {
    static const std::map<std::string, MsgAnswer> kAnswers = {
        {"yes", MsgAnswer::Yes}, {"no", MsgAnswer::No}, {"cancel", MsgAnswer::Cancel}};
    const auto answer = kAnswers.find(row[1]);
    if (answer == kAnswers.end()) {
      ADD_FAILURE() << row.where << ": no answer " << row[1];
      return;
    }
    s.messages.QueueAnswer(answer->second);
  };
  t.looks["messages"] = [](State& s, auto&) { return NewMessageLines(s.messages, s.seen); };
  t.atEnd.push_back([](State& s) {
    EXPECT_EQ(NewMessageLines(s.messages, s.seen), "") << "messages not looked at";
  });
}

}  // namespace sched::testing
