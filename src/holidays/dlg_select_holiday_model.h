#pragma once

#include <string>
#include <utility>
#include <vector>

#include "holidays/holiday_dialog_host.h"
#include "holidays/holiday_model.h"
#include "platform/device_files.h"
#include "platform/holiday_calendar.h"
#include "platform/messages.h"
#include "platform/registry.h"

namespace sched {

// The key that the country dialog writes its choice under; the registry takes it for the
// program's own key whatever the case and trailing backslash.
inline constexpr const char* kSelectHolidayKey = "SoftWare\\QTL\\Sorvane-e\\pc\\scl\\";
// Where the device keeps its own copy of the country file.
inline constexpr const char* kDeviceHolidayIni = "\\system\\ini\\holiday.ini";

// The name of the country file in use from the registry, empty when none is set (a value of
// one character or less counts as none). The value ends at its first zero character.
std::string ReadHolidayIni(Registry& registry, const char* key);

// One country file of the list: its name in the folder and the title it shows.
struct CountryFileEntry {
  std::string fileName;
  std::string title;
};

// An entry of ListHolidayInfo: the title shown and the index of its file.
struct CountryListItem {
  std::string text;
  int itemData = 0;
};

struct DlgSelectHolidayServices {
  Registry& registry;
  Messages& messages;
  DeviceFiles& device;
  HolidayCalendar& calendar;
  HolidayDialogHost& host;
  std::string pcAppsDir;  // the installation's folder of country files
};

// The country dialog (DlgSelectHoliday): lists the country files by title, opens the chosen
// one for the named holidays, remembers it in the registry and offers to copy it to the device.
class DlgSelectHolidayModel {
 public:
  DlgSelectHolidayModel(DlgSelectHolidayServices services, NamedHolidays& named)
      : s_(std::move(services)), named_(named) {}

  // Fills the list and selects the file in use. False when the program's registry key is
  // missing: that was reported, the host was told to end the program, and the dialog closes.
  bool Form_Load();
  // Changes to the selected country. With nothing selected it changes nothing, as Cancel.
  void OKButton_Click();
  void CancelButton_Click() {}

  const std::vector<std::string>& FListIniList() const { return fileList_; }
  const std::vector<CountryFileEntry>& Entries() const { return entries_; }
  const std::vector<CountryListItem>& ListHolidayInfo() const { return listItems_; }
  // The selected entry of ListHolidayInfo, -1 for none.
  int ListIndex() const { return listIndex_; }
  void SetListIndex(int index);

 private:
  void ChangeCountry(const std::string& fileName);

  DlgSelectHolidayServices s_;
  NamedHolidays& named_;
  std::vector<std::string> fileList_;
  std::vector<CountryFileEntry> entries_;
  std::vector<CountryListItem> listItems_;
  int listIndex_ = -1;
};

}  // namespace sched
