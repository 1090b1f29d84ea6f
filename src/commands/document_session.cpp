#include "commands/document_session.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/app_texts.h"
#include "core/path_parts.h"
#include "interchange/csv_file_check.h"
#include "interchange/texts.h"
#include "platform/std/safe_file.h"
#include "shell/settings.h"
#include "store/file_location.h"
#include "store/scl_format.h"
#include "store/stamp.h"

namespace sched {
namespace {

// A new file in the system's temporary folder, named "Sch" and a number, made by this save
// alone: a name that is taken, or a link planted there, is passed over.
std::string NewTempFile() {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) return {};
  for (unsigned n = 1; n < 0x10000; ++n) {
    char name[16];
    std::snprintf(name, sizeof name, "Sch%04X.tmp", n);
    const fs::path candidate = folder / name;
    if (CreateNewFile(candidate.string())) return candidate.string();
  }
  return {};
}

}  // namespace

void DocumentSession::StartProgress(const char* caption) {
  ProgressDisplay& progress = s_.progress;
  progress.SetCaption(caption);
  progress.SetValue(0);
  progress.SetVisible(true);
  progress.Refresh();
}

void DocumentSession::FinishProgress() {
  ProgressDisplay& progress = s_.progress;
  progress.SetValue(kProgressDone);
  PauseTick(s_.clock);
  progress.SetValue(0);
  progress.SetVisible(false);
  progress.SetCaption("");
  progress.Refresh();
}

void DocumentSession::LoadScheduleFile() {
  ScheduleDocument& doc = Doc();
  StartProgress("Now reading...");
  s_.views.ClearDayLists();
  if (doc.ScheduleOnPc == 0) doc.PrivateLevel = ReadPrivateLevel(s_.systemIniPath).value_or(1);
  if (!s_.store.LoadScheduleFile(doc.ScheduleFile)) {
    ReportReadError();
    return;
  }
  s_.progress.SetValue(100);
  AfterLoad(true);
  FinishProgress();
}

void DocumentSession::AfterLoad(bool remember) {
  ScheduleDocument& doc = Doc();
  s_.store.History().Clear(!doc.Dirty);
  s_.views.UpdateDeleteMenus();
  s_.view.ShowMenus();
  s_.progress.SetValue(kProgressViewsShown);
  RefreshViews();
  if (s_.store.MonthHasData(doc.CurYear, doc.CurMonth).monthRow == -1) s_.views.DisableSclDel();
  if (s_.views.List().Visible) s_.views.ShowScheduleList();
  s_.view.ShowViews();
  ShowTitle();
  if (remember) StoreLastFile(s_.settings, kDayviewSection, doc.ScheduleFile, doc.ScheduleOnPc);
  s_.store.Alarms().SortTodayAlarms();
  s_.store.Alarms().ArmNextAlarm();
}

// A damaged file leaves an empty untitled document.
void DocumentSession::ReportReadError() {
  ScheduleDocument& doc = Doc();
  s_.messages.Show({"Read error!", kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
  doc.Dirty = false;
  s_.view.ShowFirstTab();
  doc.ScheduleFile.clear();
  ResetToToday(true);
  s_.view.SetTitle(kUntitledCaption);
  s_.progress.SetVisible(false);
}

void DocumentSession::WriteError(const char* text) {
  s_.messages.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

bool DocumentSession::SaveScheduleFile() {
  ScheduleDocument& doc = Doc();
  StartProgress("Now writing...");
  doc.PrivateLevel = ReadPrivateLevel(s_.systemIniPath).value_or(1);
  const bool toDevice = doc.SaveToDevice;
  doc.SaveToDevice = false;
  // A device file is written to a temporary file that the device's file service takes.
  const std::string target = toDevice ? NewTempFile() : doc.ScheduleFile;
  if (target.empty() || !s_.store.SaveScheduleFile(target)) {
    std::error_code error;
    if (toDevice && !target.empty()) std::filesystem::remove(target, error);
    WriteError("Write error!");
    s_.progress.SetVisible(false);
    return false;
  }
  const bool sent = !toDevice || SendToDevice(target);
  if (sent) s_.store.History().MarkSaved();
  StoreLastFile(s_.settings, kDayviewSection, doc.ScheduleFile, doc.ScheduleOnPc);
  FinishProgress();
  return sent;
}

bool DocumentSession::SendToDevice(const std::string& temp) {
  const ScheduleDocument& doc = Doc();
  bool sent = true;
  if (s_.device.Sor_PutFile(doc.DevicePath, temp) == 0) {
    s_.device.Sor_UpdateSchAlarmInfo(doc.DevicePath);
  } else {
    sent = false;
    WriteError("File translate error when upload to Tarvex!");
  }
  std::error_code error;
  std::filesystem::remove(temp, error);
  return sent;
}

void DocumentSession::ResetToToday(bool noRedraw) {
  const DateTime now = s_.clock.Now();
  ScheduleDocument& doc = Doc();
  const CivilDate today{now.year, now.month, now.day};
  doc.SetShownDate(today);
  doc.CopiedRow = -1;  // a copy does not outlive the document it was taken from
  s_.views.ShowDate(today);
  s_.store.ResetHeader();
  s_.store.ClearIndex();
  s_.store.History().Clear(true);
  s_.views.ClearDayLists();
  if (!noRedraw) RefreshViews();
}

void DocumentSession::RefreshViews() {
  s_.views.RefreshViews();
  s_.view.ShowViews();
}

void DocumentSession::RepaintViews() {
  s_.view.ShowViews();
}

void DocumentSession::AfterChange() {
  Doc().Dirty = true;
  ShowChange();
}

void DocumentSession::ShowChange() {
  s_.views.RefreshViews();
  if (s_.views.List().Visible) s_.views.ShowScheduleList();
  s_.view.ShowViews();
}

void DocumentSession::ShowTitle() {
  const ScheduleDocument& doc = Doc();
  if (doc.ScheduleFile.empty()) {
    s_.view.SetTitle(kUntitledCaption);
  } else if (IsCsvName(doc.ScheduleFile)) {
    s_.view.SetTitle(texts::kCsvTitlePrefix + std::string(SplitPath(doc.ScheduleFile).name));
  } else {
    s_.view.SetTitle(std::string(kAppTitle) + " - " +
                     FormatLocation(doc.ScheduleFile, doc.ScheduleOnPc));
  }
}

}  // namespace sched
