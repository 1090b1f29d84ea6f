#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/calendar.h"
#include "core/codepage.h"
#include "store/sch_tables.h"
#include "store/scl_format.h"

namespace sched {

// The holiday masks of one year as the views hold them, month 1 first.
struct YearMasks {
  std::array<std::int32_t, 12> HolidayOn{};
  std::array<std::int32_t, 12> HolidayOff{};
};

// The open schedule: its tables, its header and weekly holidays, and the state that the
// commands share.
struct ScheduleDocument {
  SchDatCTL Tables;
  SclHeader Header;
  // 1 for each weekday (0 Sunday to 6 Saturday) that is a weekly holiday.
  std::array<std::int16_t, 7> WeekHoliday{1, 0, 0, 0, 0, 0, 0};
  // The masks of the shown year and of the years before and after it, as the views use them.
  YearMasks ShownYearMasks;
  YearMasks PrevYearMasks;
  YearMasks NextYearMasks;

  std::int16_t PrivateLevel = 1;
  // The code page of the texts in the files that are read and written next.
  CodePage FileCodePage = CodePage::kWestern;
  int LoadedRecords = 0;  // records the last load read from the file
  bool Dirty = false;
  std::string ScheduleFile;  // path of the open file, "" when untitled
  int ScheduleOnPc = 1;      // 1 a file on the PC, 0 the cached copy of a device file
  bool SaveToDevice = false;
  std::string DevicePath;  // the file's name on the device, for a save to the device

  int CopiedRow = -1;  // the row that Copy took, -1 while nothing is copied
  // The first and last date of the copied series, as Copy found them.
  CivilDate CopiedFirstDate;
  CivilDate CopiedLastDate;

  // The shown date, the day the views stand on.
  int CurYear = kFirstYear;
  int CurMonth = 1;
  int CurDay = 1;
  void SetShownDate(const CivilDate& date) {
    CurYear = date.year;
    CurMonth = date.month;
    CurDay = date.day;
  }
};

}  // namespace sched
