#pragma once

#include <string>

#include "platform/file_dialogs.h"
#include "platform/messages.h"
#include "platform/settings_store.h"

namespace sched {

struct LinkSettingsServices {
  SettingsStore& settings;
  Messages& messages;
  FileDialogs& dialogs;
  std::string pimDataDir;  // where the calendar file is proposed until the user chooses one
};

// "Data Link Settings": the iCalendar file that Export writes to and Import reads from.
class LinkSettingsModel {
 public:
  explicit LinkSettingsModel(LinkSettingsServices services) : s_(std::move(services)) {}

  // Shows the file in use.
  void Form_Load();
  void CalendarFile_Change(const std::string& path) { calendarFile_ = path; }
  // An open dialog on the calendar files of the shown file's folder; a file chosen is shown.
  void Browse_Click();
  // Stores the file and returns true; refuses, with a message, a path that names no file in a
  // folder that exists.
  bool OK_Click();

  const std::string& CalendarFile() const { return calendarFile_; }

 private:
  LinkSettingsServices s_;
  std::string calendarFile_;
};

}  // namespace sched
