#pragma once

#include <string>
#include <vector>

#include "alarms/notice_gate.h"
#include "commands/document_view.h"

namespace sched {

// The main window as the document commands see it, recording each call ("SetTitle ...").
class RecordingDocumentView : public DocumentView {
 public:
  std::vector<std::string> calls;
  std::string title = "Scheduler - Untitled";

  void SetTitle(const std::string& text) override {
    title = text;
    calls.push_back("SetTitle " + text);
  }
  void ShowFirstTab() override { calls.push_back("ShowFirstTab"); }
  void HideScheduleList() override { calls.push_back("HideScheduleList"); }
  void BringToFront() override { calls.push_back("BringToFront"); }
  void ShowViews() override { calls.push_back("ShowViews"); }
  void ShowMenus() override { calls.push_back("ShowMenus"); }
};

// Records whether alarm notices are held back.
class RecordingNotices : public NoticeGate {
 public:
  int holds = 0;  // the dialogs open now
  void HoldNotices() override { ++holds; }
  void ReleaseNotices() override { --holds; }
};

}  // namespace sched
