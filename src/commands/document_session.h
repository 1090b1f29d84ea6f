#pragma once

#include <string>

#include "commands/document_view.h"
#include "interchange/csv_exchange.h"
#include "platform/clock.h"
#include "platform/device_files.h"
#include "platform/messages.h"
#include "platform/progress_display.h"
#include "platform/settings_store.h"
#include "store/schedule_store.h"
#include "views/calendar_views.h"

namespace sched {

struct SessionServices {
  ScheduleStore& store;
  CalendarViews& views;
  DocumentView& view;
  Messages& messages;
  ProgressDisplay& progress;
  DeviceFiles& device;
  SettingsStore& settings;
  const Clock& clock;
  std::string systemIniPath;  // the cached copy of the device's System.ini
};

// The open document and what the program does around the store: reading and writing the file
// with the progress display and the error messages, and the window's state after a load, after
// a failure and after a reset. Every command that replaces or writes the document goes through
// here, CSV documents included.
class DocumentSession : public CsvExchange {
 public:
  explicit DocumentSession(SessionServices services) : s_(services) {}

  ScheduleDocument& Doc() { return s_.store.Document(); }
  ScheduleStore& Store() { return s_.store; }

  // Reads ScheduleFile into the store; a file that cannot be read leaves an empty untitled
  // document after "Read error!".
  void LoadScheduleFile();
  // Writes the whole file, to the device when SaveToDevice is set; false after a failure, which
  // was reported.
  [[nodiscard]] bool SaveScheduleFile();
  // Makes the document anew from a CSV file's rows, in the stored mapping; a file that cannot
  // be read to its end leaves an empty untitled document after "Read error!".
  void ImportCsv(const std::string& path) override;
  // Writes the document as a CSV file, whole or not at all; false when it cannot be written.
  bool ExportCsv(const std::string& path) override;

  // Empties the document and shows today; redraws unless told not to.
  void ResetToToday(bool noRedraw);
  // The shown tab rebuilt from the store, then the menus, on the window.
  void RefreshViews();
  // The window shows the views' state again, without a refill.
  void RepaintViews();
  // After a command changed the schedule: it is marked changed and the views show the change.
  void AfterChange();
  // The views, the schedule list and the delete menus show the schedule as it now stands.
  void ShowChange();
  // "Scheduler - PC:name", "Scheduler - Tarvex:name", "Scheduler- name.csv" or "Scheduler -
  // Untitled".
  void ShowTitle();

 private:
  // The views, title and alarms of a document just read; a schedule file is remembered as the
  // last file.
  void AfterLoad(bool remember);
  void ReportReadError();
  void StartProgress(const char* caption);
  void FinishProgress();
  bool SendToDevice(const std::string& temp);
  void WriteError(const char* text);

  SessionServices s_;
};

}  // namespace sched
