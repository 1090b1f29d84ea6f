#include "holidays/dlg_select_holiday_model.h"

#include "core/app_texts.h"
#include "core/registry_keys.h"
#include "holidays/country_file_list.h"
#include "holidays/holiday_texts.h"
#include "store/schedule_store.h"

namespace sched {

std::string ReadHolidayIni(Registry& registry, const char* key) {
  const std::string value = registry.ReadString(key, kHolidayIniValue).value_or("");
  if (value.size() <= 1) return {};
  return value.substr(0, value.find('\0'));
}

bool DlgSelectHolidayModel::Form_Load() {
  fileList_ = ListCountryFiles(s_.pcAppsDir);
  entries_.clear();
  listItems_.clear();
  listIndex_ = -1;
  if (!s_.registry.KeyExists(kSchedulerKey)) {
    s_.messages.Show({texts::kDirectoryMissing, kAppTitle, MsgIcon::Critical, MsgButtons::Ok});
    s_.host.EndProgram();
    return false;
  }
  const std::string inUse = ReadHolidayIni(s_.registry, kSchedulerKey);
  for (const std::string& name : fileList_) {
    const int index = static_cast<int>(entries_.size());
    entries_.push_back({name, ReadCountryTitle(s_.pcAppsDir + "/" + name)});
    listItems_.push_back({entries_.back().title, index});
    if (name == inUse) listIndex_ = index;
  }
  return true;
}

void DlgSelectHolidayModel::SetListIndex(int index) {
  listIndex_ = index >= 0 && index < static_cast<int>(listItems_.size()) ? index : -1;
}

void DlgSelectHolidayModel::OKButton_Click() {
  if (listIndex_ < 0) return;
  const auto entry =
      static_cast<std::size_t>(listItems_[static_cast<std::size_t>(listIndex_)].itemData);
  ChangeCountry(entries_[entry].fileName);
}

// The former country file is closed before the new one is tried, so a failure leaves the
// program without named holidays until a country is chosen again.
void DlgSelectHolidayModel::ChangeCountry(const std::string& fileName) {
  const std::string path = s_.pcAppsDir + "/" + fileName;
  if (named_.HolidayReady != 0 && named_.calendar != nullptr) {
    named_.calendar->SorCalender_EndFunction(named_.HolidayHandle);
  }
  named_.calendar = &s_.calendar;
  CalendarHandle handle = 0;
  if (s_.calendar.SorCalender_InitFunction(path, handle) != 0) {
    s_.messages.Show({holiday_texts::kCountryFileInvalid, kAppTitle});
    named_.HolidayHandle = 0;
    named_.HolidayReady = 0;
    return;
  }
  named_.HolidayHandle = handle;
  named_.HolidayReady = -1;
  s_.registry.CreateKey(kSelectHolidayKey);
  s_.registry.WriteString(kSelectHolidayKey, kHolidayIniValue, fileName);

  const MsgAnswer copy = s_.messages.Show(
      {holiday_texts::kAskCopyToDevice, kAppTitle, MsgIcon::Exclamation, MsgButtons::YesNo});
  // A failed copy goes unreported: the change on the PC stands either way.
  if (copy == MsgAnswer::Yes) s_.device.Sor_PutFile(kDeviceHolidayIni, path);
}

}  // namespace sched
