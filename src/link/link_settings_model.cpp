#include "link/link_settings_model.h"

#include <filesystem>

#include "core/app_texts.h"
#include "link/link_settings.h"

namespace sched {
namespace {

constexpr const char* kCalendarFilter = "iCalendar Files(*.ics)|*.ics";
constexpr const char* kSpecifyTheFile = "Specify the calendar file with its full path.";
constexpr const char* kNoSuchFolder = "The folder of the calendar file does not exist.";
constexpr const char* kSpecifyTheUrl =
    "Specify the calendar's web address, beginning with https:// or http://.";
constexpr const char* kSpecifyTheUser = "Specify your user name on the calendar server.";

bool IsWebAddress(const std::string& url) {
  const std::size_t scheme = url.find("://");
  return (url.starts_with("https://") || url.starts_with("http://")) && url.size() > scheme + 3 &&
         url.find_first_of(" \t\r\n") == std::string::npos;
}

// Why the server cannot be asked; nothing when it can.
const char* ServerRefusal(const std::string& url, const std::string& user) {
  if (!IsWebAddress(url)) return kSpecifyTheUrl;
  if (user.empty()) return kSpecifyTheUser;
  return nullptr;
}

// Why the path can hold no calendar file; nothing when it can.
const char* Refusal(const std::filesystem::path& file) {
  std::error_code error;
  if (!file.is_absolute() || !file.has_filename() || std::filesystem::is_directory(file, error)) {
    return kSpecifyTheFile;
  }
  if (!std::filesystem::is_directory(file.parent_path(), error)) return kNoSuchFolder;
  return nullptr;
}

}  // namespace

void LinkSettingsModel::Say(const std::string& text, MsgIcon icon) {
  s_.messages.Show({text, kAppTitle, icon, MsgButtons::Ok});
}

void LinkSettingsModel::Form_Load() {
  kind_ = ReadLinkKind(s_.settings);
  calendarFile_ = LinkCalendarPath(s_.settings, s_.pimDataDir);
  serverUrl_ = ReadLinkServerUrl(s_.settings);
  serverUser_ = ReadLinkServerUser(s_.settings);
}

void LinkSettingsModel::Browse_Click() {
  const std::filesystem::path shown(calendarFile_);
  const std::string folder = shown.is_absolute() ? shown.parent_path().string() : s_.pimDataDir;
  if (const auto chosen =
          s_.dialogs.OpenFile({folder, kCalendarFilter, shown.filename().string()})) {
    calendarFile_ = *chosen;
  }
}

void LinkSettingsModel::TestConnection_Click() {
  if (const char* refusal = ServerRefusal(serverUrl_, serverUser_)) {
    Say(refusal, MsgIcon::Exclamation);
    return;
  }
  const CalDavCollection::Summary found = s_.probe(serverUrl_, serverUser_);
  if (!found.outcome.Ok()) {
    Say(ProblemText(found.outcome), MsgIcon::Exclamation);
    return;
  }
  const std::string name = found.displayName.empty() ? serverUrl_ : found.displayName;
  Say("Connected. The calendar \"" + name + "\" holds " + std::to_string(found.events) +
          (found.events == 1 ? " event." : " events."),
      MsgIcon::Information);
}

bool LinkSettingsModel::OK_Click() {
  const char* refusal =
      kind_ == LinkKind::kServer ? ServerRefusal(serverUrl_, serverUser_) : Refusal(calendarFile_);
  if (refusal != nullptr) {
    Say(refusal, MsgIcon::Exclamation);
    return false;
  }
  SaveLinkKind(s_.settings, kind_);
  if (kind_ == LinkKind::kServer) {
    SaveLinkServerUrl(s_.settings, serverUrl_);
    SaveLinkServerUser(s_.settings, serverUser_);
  } else {
    SaveLinkCalendar(s_.settings, calendarFile_);
  }
  return true;
}

}  // namespace sched
