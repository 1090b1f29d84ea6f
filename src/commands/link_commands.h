#pragma once

#include <optional>
#include <string>

#include "alarms/notice_gate.h"
#include "commands/command_set.h"
#include "commands/document_session.h"
#include "link/link_settings.h"
#include "platform/clock.h"
#include "platform/link_component.h"
#include "platform/messages.h"
#include "platform/settings_store.h"

namespace sched {

// The import options dialog as the data link's commands see it.
class LinkDialogs {
 public:
  virtual ~LinkDialogs() = default;
  // The answers of the import options after OK, stored; nothing after Cancel.
  virtual std::optional<ImportOptions> ShowFormDip() = 0;
  // While the link component works the window takes no input.
  virtual void EnableMainWindow(bool enabled) = 0;
};

struct LinkServices {
  DocumentSession& session;
  LinkComponent& link;
  LinkDialogs& dialogs;
  NoticeGate& notices;
  Messages& messages;
  SettingsStore& settings;
  const Clock& clock;
  std::string workDir;  // where the files of the exchange are made
};

// The commands of the data link: export to the PIM program, import from it, and the mark of
// "Import exported data".
class LinkCommands {
 public:
  explicit LinkCommands(LinkServices services) : s_(std::move(services)) {}

  void PcExport_Click();
  void PcImport_Click();

 private:
  void Say(const char* text, MsgIcon icon = MsgIcon::Exclamation);
  // Runs the link component with the window disabled.
  bool RunLink(bool exporting, const std::string& path);

  LinkServices s_;
};

void BindLinkCommands(CommandSet& set, LinkCommands& commands);

}  // namespace sched
