#pragma once

#include <optional>
#include <string>

namespace sched {

// What a PC open or save dialog is asked: its start folder, its filter in the form
// "Scheduler Files(*.scl)|*.scl", and the proposed name.
struct FileDialogRequest {
  std::string folder;
  std::string filter;
  std::string proposal;
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // The chosen path; nothing when the user cancels.
  virtual std::optional<std::string> OpenFile(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> SaveFile(const FileDialogRequest& request) = 0;
};

}  // namespace sched
