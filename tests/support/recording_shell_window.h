#pragma once

#include "shell/shell_window.h"
#include "tests/support/recording_store_host.h"

namespace sched {

// The main window as the shell's commands see it, recording each call.
class RecordingShellWindow : public RecordingHost<ShellWindow> {
 public:
  std::string title = "Scheduler - Untitled";

  void SetTitle(const std::string& text) override {
    title = text;
    RecordingHost<ShellWindow>::SetTitle(text);
  }
  void HideScheduleList() override { calls.push_back("HideScheduleList"); }
  void EnableSaveButton() override { calls.push_back("EnableSaveButton"); }
  void DisableDeleteMonthYear() override { calls.push_back("DisableDeleteMonthYear"); }
  void RefreshViews() override { calls.push_back("RefreshViews"); }
  void ClearMonthBar() override { calls.push_back("ClearMonthBar"); }
  void BringToFront() override { calls.push_back("BringToFront"); }
  void ShowDate(int year, int month, int day) override {
    calls.push_back("ShowDate " + std::to_string(year) + "/" + std::to_string(month) + "/" +
                    std::to_string(day));
  }
  void FlushPendingNotices() override { calls.push_back("FlushPendingNotices"); }
  void RefreshSoundList() override { calls.push_back("RefreshSoundList"); }
};

}  // namespace sched
