#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "appointments/sch_edit_model.h"
#include "commands/link_commands.h"
#include "link/caldav_collection.h"
#include "platform/clock.h"
#include "platform/file_dialogs.h"
#include "platform/messages.h"
#include "platform/settings_store.h"

namespace sched {

// The data link's dialogs over Qt: the import options, the main window held while the link
// component works, and the link's own settings.
class QtLinkDialogs : public LinkDialogs {
 public:
  struct Services {
    QWidget* window;
    SettingsStore& settings;
    Messages& messages;
    const Clock& clock;
    std::function<std::vector<std::string>()> sounds;  // the names the sound combo offers
    SchEditMedia* media;                               // plays them for Listen
    FileDialogs& fileDialogs;
    std::string pimDataDir;  // where the calendar file is until the user chooses another
    // What "Test Connection" finds on a server.
    std::function<CalDavCollection::Summary(const std::string& url, const std::string& user)> probe;
  };
  explicit QtLinkDialogs(Services services) : s_(std::move(services)) {}

  std::optional<ImportOptions> ShowFormDip() override;
  void EnableMainWindow(bool enabled) override;
  // "Data Link Settings", modal; OK stores the calendar file or the server.
  void ShowLinkSettings();
  // The password of a server account, asked without echo; nothing after Cancel.
  std::optional<std::string> AskServerPassword(const std::string& account);

 private:
  Services s_;
};

}  // namespace sched
