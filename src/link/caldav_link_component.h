#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/codepage.h"
#include "link/bytes_link_component.h"
#include "link/caldav_collection.h"
#include "link/link_exchange.h"
#include "platform/clock.h"
#include "platform/http_client.h"
#include "platform/messages.h"

namespace sched {

// The link component as a bridge to a calendar collection on a CalDAV server: an export puts
// an event a series or item of the export file, never over a version that someone changed on
// the server since the last export; an import makes the import file of the events of the
// import's period. What goes wrong is said through `messages`, in a user's words.
class CalDavLinkComponent : public BytesLinkComponent {
 public:
  struct Services {
    HttpClient& http;
    Messages& messages;
    const Clock& clock;
    std::function<std::string()> url;
    std::function<std::string()> user;
    // The password of the account; nothing when the user gave none.
    std::function<std::optional<std::string>()> password;
    // Told when the server refused the password.
    std::function<void()> passwordRefused;
    std::function<CodePage()> codePage;
    // The dates the import takes.
    std::function<ImportPeriod()> period;
    std::string etagFolder;  // where the ETags of each collection are kept
  };
  explicit CalDavLinkComponent(Services services) : s_(std::move(services)) {}

  // The same on the bytes of the link files.
  bool Export(std::span<const std::uint8_t> linkFile) override;
  std::optional<std::vector<std::uint8_t>> Import() override;

 private:
  // The collection of the account, after a check that it is a calendar; nothing, with the
  // problem said, when it is none or the server is not there.
  std::optional<CalDavCollection> Open();
  void Say(const std::string& text, MsgIcon icon = MsgIcon::Exclamation);
  void Fail(const CalDavOutcome& outcome);

  Services s_;
};

// The events and time zones of the calendars of `resources` as one calendar text.
std::string JoinCalendars(const std::vector<DavResource>& resources);

}  // namespace sched
