#pragma once

#include <QWidget>

#include "platform/file_dialogs.h"

namespace sched {

// The system's open and save dialogs.
class QtFileDialogs : public FileDialogs {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }
  std::optional<std::string> OpenFile(const FileDialogRequest& request) override;
  std::optional<std::string> SaveFile(const FileDialogRequest& request) override;

 private:
  std::optional<std::string> Run(const FileDialogRequest& request, bool save);
  QWidget* parent_ = nullptr;
};

// "Scheduler Files(*.scl)|*.scl" as a dialog's name filter: "Scheduler Files (*.scl)".
QString QtNameFilter(const std::string& filter);

}  // namespace sched
