#pragma once

#include <cstdint>
#include <string>

#include "core/app_texts.h"
#include "platform/clock.h"
#include "platform/device_files.h"
#include "platform/messages.h"
#include "platform/progress_display.h"
#include "store/document.h"
#include "store/sch_record.h"
#include "store/store_host.h"

namespace sched {

// The outside world as the store sees it.
struct StoreServices {
  StoreHost& host;
  Messages& messages;
  ProgressDisplay& progress;
  const Clock& clock;
  DeviceFiles& device;
  std::string systemIniPath;  // the cached copy of the device's System.ini
};

// What MonthHasData finds for a month.
struct MonthData {
  int monthRow = -1;     // row in AncMM, -1 when the year has no such month
  bool hasData = false;  // a holiday mask of the month or a live row in it
};

// The operations on the open schedule: loading, saving and the record operations by which
// every command changes the tables.
class ScheduleStore {
 public:
  ScheduleStore(ScheduleDocument& doc, StoreServices services) : doc_(doc), svc_(services) {}

  ScheduleDocument& Document() { return doc_; }
  const ScheduleDocument& Document() const { return doc_; }

  // Empties the tables and the day view's lists.
  void ClearIndex();
  // A new schedule's header: Sunday the only weekly holiday, no private records, no years.
  void ResetHeader();

  // Reads ScheduleFile into the tables; a file that cannot be read leaves an empty untitled
  // document after "Read error!".
  void LoadScheduleFile();
  // Writes the whole file from the tables; false after a failure, which was reported.
  bool SaveScheduleFile();

  // Adds the record on its own date (Day, Month, Year), making year and month rows as needed.
  void InsertRecord(const SchRecord& record);
  int FindOrAddYear(int year);
  int FindOrAddMonth(int month, int yearRow);
  // Adds the record's row and links it into the day's chain in order of StartTime.
  int InsertRow(int head, int monthRow, int day, const SchRecord& record);
  // Marks the rows of the record's item deleted: the whole series for a repeating or
  // multi-day item, else the one item.
  void DeleteItem(const SchRecord& record);
  SchRecord ReadRowToRecord(int row) const;
  // A stamp that no row holds yet; waits for the clock when the current one is taken.
  std::int32_t NewUniqueStamp();

  MonthData MonthHasData(int year, int month) const;

 private:
  void ReportReadError();
  bool AlarmDueToday(const SchDatRow& row) const;
  void FinishProgress();

  friend class SclLoader;
  friend class SclWriter;

  ScheduleDocument& doc_;
  StoreServices svc_;
};

// The 24 cells of a row for the record. Texts lose their tabs, the private flag is 0 or 1.
SchDatRow BuildRecordLine(const SchRecord& record);

// The working record of a row: the reverse of BuildRecordLine.
SchRecord RowToRecord(const SchDatRow& row);

// Gives the first row of a day chain after sorting rows first .. first+count-1 by StartTime,
// keeping equal times in their order, and relinks them.
int SortDayChain(SchDatCTL& ctl, int first, int count);

// A repeating row whose series has no other live row becomes a plain item.
void CheckSeries(SchDatCTL& ctl);

// Bit i (Sunday 0 to Saturday 6) for each weekday that is a weekly holiday.
std::uint16_t WeekHolidayMask(const std::array<std::int16_t, 7>& weekHoliday);

// "PC:" or "Tarvex:" and the file's name.
std::string FormatLocation(const std::string& path, int onPc);

}  // namespace sched
