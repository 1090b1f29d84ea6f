#pragma once

#include <string>
#include <vector>

#include "commands/document_view.h"
#include "commands/pending_notices.h"

namespace sched {

// The main window as the document commands see it, recording each call ("SetTitle ...").
class RecordingDocumentView : public DocumentView {
 public:
  std::vector<std::string> calls;
  std::string title = "Scheduler - Untitled";

  bool Called(const std::string& call) const {
    for (const auto& c : calls) {
      if (c == call) return true;
    }
    return false;
  }

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

// Counts the times the notices held back by a dialog were let out.
class RecordingNotices : public PendingNotices {
 public:
  int flushes = 0;
  void FlushPendingNotices() override { ++flushes; }
};

}  // namespace sched
