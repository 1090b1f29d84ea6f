#pragma once

#include <functional>
#include <string>

#include "link/caldav_collection.h"
#include "link/link_settings.h"
#include "platform/file_dialogs.h"
#include "platform/messages.h"
#include "platform/settings_store.h"

namespace sched {

struct LinkSettingsServices {
  SettingsStore& settings;
  Messages& messages;
  FileDialogs& dialogs;
  std::string pimDataDir;  // where the calendar file is proposed until the user chooses one
  // What the server at the URL holds for the user.
  std::function<CalDavCollection::Summary(const std::string& url, const std::string& user)> probe;
};

// "Data Link Settings": what Export writes to and Import reads from, the iCalendar file or a
// calendar on a CalDAV server.
class LinkSettingsModel {
 public:
  explicit LinkSettingsModel(LinkSettingsServices services) : s_(std::move(services)) {}

  // Shows the choice in use.
  void Form_Load();
  void Kind_Change(LinkKind kind) { kind_ = kind; }
  void CalendarFile_Change(const std::string& path) { calendarFile_ = path; }
  void ServerUrl_Change(const std::string& url) { serverUrl_ = url; }
  void ServerUser_Change(const std::string& user) { serverUser_ = user; }
  // An open dialog on the calendar files of the shown file's folder; a file chosen is shown.
  void Browse_Click();
  // Says what the server holds at the URL for the user, or what went wrong.
  void TestConnection_Click();
  // Stores the choice and returns true; refuses, with a message, a path that names no file in
  // a folder that exists, or a server without a web address.
  bool OK_Click();

  LinkKind Kind() const { return kind_; }
  const std::string& CalendarFile() const { return calendarFile_; }
  const std::string& ServerUrl() const { return serverUrl_; }
  const std::string& ServerUser() const { return serverUser_; }

 private:
  void Say(const std::string& text, MsgIcon icon);

  LinkSettingsServices s_;
  LinkKind kind_ = LinkKind::kFile;
  std::string calendarFile_;
  std::string serverUrl_;
  std::string serverUser_;
};

}  // namespace sched
