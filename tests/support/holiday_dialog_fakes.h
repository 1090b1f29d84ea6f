#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/registry_keys.h"
#include "holidays/country_calendar.h"
#include "holidays/dlg_select_holiday_model.h"
#include "holidays/holiday_dialog_host.h"
#include "platform/fake/fake_device_files.h"
#include "platform/fake/fake_holiday_calendar.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_registry.h"
#include "tests/support/temp_dir.h"

namespace sched {

// Records what the holiday dialogs ask of the main window, one text a call.
class RecordingHolidayHost : public HolidayDialogHost {
 public:
  std::vector<std::string> calls;

  void SetModifiedMark() override { calls.push_back("SetModifiedMark"); }
  void PaintWeekHeads(const WeekFlags& flags) override {
    std::string heads = "PaintWeekHeads ";
    for (std::int16_t flag : flags) heads += std::to_string(flag);
    calls.push_back(heads);
  }
  void RefillMonthView() override { calls.push_back("RefillMonthView"); }
  void ShowHelp() override { calls.push_back("ShowHelp"); }
  void EndProgram() override { calls.push_back("EndProgram"); }

  // The calls made since the last look, joined by " | ".
  std::string NewCalls() {
    std::string text;
    for (; seen_ < calls.size(); ++seen_) text += (text.empty() ? "" : " | ") + calls[seen_];
    return text;
  }

 private:
  std::size_t seen_ = 0;
};

// The country-file engine, with a record of the calls made on it: "Init <file name> <result>",
// "End <handle>".
class RecordingCalendar : public CountryCalendar {
 public:
  std::vector<std::string> calls;

  int SorCalender_InitFunction(const std::string& path, CalendarHandle& handle) override {
    const int result = CountryCalendar::SorCalender_InitFunction(path, handle);
    calls.push_back("Init " + path.substr(path.find_last_of('/') + 1) + " " +
                    std::to_string(result));
    return result;
  }
  void SorCalender_EndFunction(CalendarHandle handle) override {
    calls.push_back("End " + std::to_string(handle));
    CountryCalendar::SorCalender_EndFunction(handle);
  }
};

// The bytes of a shipped country file.
inline std::string ShippedCountryFile(const std::string& name) {
  const std::vector<std::uint8_t> bytes =
      ReadBytes(std::string(SCHEDULER_DATA_DIR) + "/pcapps/" + name);
  return {bytes.begin(), bytes.end()};
}

// An installation's folder of country files and what the country dialog works with, as after a
// start with `inUse` named in the registry and open.
struct CountryFolder {
  CountryFolder(const std::vector<std::string>& shipped, const std::string& inUse) {
    std::filesystem::create_directory(pcapps);
    for (const std::string& name : shipped) Write(name, ShippedCountryFile(name));
    registry.WriteString(kSchedulerKey, kHolidayIniValue, inUse);
    Start(inUse);
  }

  void Write(const std::string& name, const std::string& text) const {
    dir.Write("pcapps/" + name, text);
  }
  // Opens the file as the start of the program does; the calls are not recorded.
  void Start(const std::string& name) {
    calendar.SorCalender_InitFunction(pcapps + "/" + name, named.HolidayHandle);
    named.calendar = &calendar;
    named.HolidayReady = -1;
    calendar.calls.clear();
  }
  DlgSelectHolidayServices Services() {
    return {registry, messages, device, calendar, host, pcapps};
  }
  // The name of the date's named holiday in the country file in use, "" for none.
  std::string Named(int year, int month, int day) const {
    std::string name;
    named.GetHolidayName(year, month, day, name);
    return name;
  }

  TempDir dir;
  std::string pcapps = dir.File("pcapps");
  FakeRegistry registry;
  FakeMessages messages;
  FakeDeviceFiles device;
  RecordingCalendar calendar;
  RecordingHolidayHost host;
  NamedHolidays named;
};

}  // namespace sched
