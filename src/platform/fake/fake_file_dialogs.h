#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_dialogs.h"

namespace sched {

// Answers open and save dialogs from a queue (nothing queued: the user cancels), and records
// what each dialog was asked.
class FakeFileDialogs : public FileDialogs {
 public:
  struct Shown {
    bool save;
    FileDialogRequest request;
  };

  void QueueAnswer(std::optional<std::string> path) { answers_.push_back(std::move(path)); }
  // What happens while the next dialogs are open, as the user looks at them.
  std::function<void()> whileOpen;
  const std::vector<Shown>& ShownDialogs() const { return shown_; }

  std::optional<std::string> OpenFile(const FileDialogRequest& request) override {
    return Answer(false, request);
  }
  std::optional<std::string> SaveFile(const FileDialogRequest& request) override {
    return Answer(true, request);
  }

 private:
  std::optional<std::string> Answer(bool save, const FileDialogRequest& request) {
    shown_.push_back({save, request});
    if (whileOpen) whileOpen();
    if (answers_.empty()) return std::nullopt;
    auto answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  std::deque<std::optional<std::string>> answers_;
  std::vector<Shown> shown_;
};

}  // namespace sched
