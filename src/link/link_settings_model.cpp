#include "link/link_settings_model.h"

#include <filesystem>

#include "core/app_texts.h"
#include "link/link_settings.h"

namespace sched {
namespace {

constexpr const char* kCalendarFilter = "iCalendar Files(*.ics)|*.ics";
constexpr const char* kSpecifyTheFile = "Specify the calendar file with its full path.";
constexpr const char* kNoSuchFolder = "The folder of the calendar file does not exist.";

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

void LinkSettingsModel::Form_Load() {
  calendarFile_ = LinkCalendarPath(s_.settings, s_.pimDataDir);
}

void LinkSettingsModel::Browse_Click() {
  const std::filesystem::path shown(calendarFile_);
  const std::string folder = shown.is_absolute() ? shown.parent_path().string() : s_.pimDataDir;
  if (const auto chosen =
          s_.dialogs.OpenFile({folder, kCalendarFilter, shown.filename().string()})) {
    calendarFile_ = *chosen;
  }
}

bool LinkSettingsModel::OK_Click() {
  if (const char* refusal = Refusal(calendarFile_)) {
    s_.messages.Show({refusal, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
    return false;
  }
  SaveLinkCalendar(s_.settings, calendarFile_);
  return true;
}

}  // namespace sched
