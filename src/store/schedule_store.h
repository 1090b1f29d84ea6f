#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/progress_display.h"
#include "store/alarm_hooks.h"
#include "store/document.h"
#include "store/sch_record.h"
#include "store/undo_history.h"

namespace sched {

// The outside world as the store sees it.
struct StoreServices {
  AlarmHooks& alarms;
  ProgressDisplay& progress;  // the bar while a file is read or written; the wait pointer
  const Clock& clock;
};

// What MonthHasData finds for a month.
struct MonthData {
  int monthRow = -1;     // row in AncMM, -1 when the year has no such month
  bool hasData = false;  // a holiday mask of the month or a live row in it
};

// The operations on the open schedule: reading and writing schedule files, and the record
// operations by which every command changes the tables. The store tells nobody but today's
// alarm list what it did: what the program shows next is up to the caller.
class ScheduleStore {
 public:
  ScheduleStore(ScheduleDocument& doc, StoreServices services)
      : doc_(doc), svc_(services), history_(doc) {}

  ScheduleDocument& Document() { return doc_; }
  const ScheduleDocument& Document() const { return doc_; }
  AlarmHooks& Alarms() { return svc_.alarms; }
  // Undo and redo of the commands' changes; it records only once told to.
  UndoHistory& History() { return history_; }
  const UndoHistory& History() const { return history_; }
  // Takes back the last step, or makes the next one again, with today's alarms of its rows.
  void Undo();
  void Redo();

  // Empties the tables.
  void ClearIndex();
  // A new schedule's header: Sunday the only weekly holiday, no private records, no years, no
  // alarms, nothing changed.
  void ResetHeader();

  // Empties the document and reads a whole schedule file into it; the bar runs from 0 to 100
  // over the file's years. A damaged file fails with where and why, and leaves the document
  // empty. Private records of a device file below the document's PrivateLevel are left out.
  SclLoadResult LoadSchedule(std::span<const std::uint8_t> bytes);
  // The same for the file at `path`; fails too when the file cannot be read.
  SclLoadResult LoadScheduleFile(const std::string& path);
  // The same for the bytes of a file, whose memory is given back as they are read.
  SclLoadResult LoadFileBytes(FileBytes bytes);
  // The bytes of the schedule file for the tables; the bar runs from 0 to 100. The header
  // takes the file's new values.
  std::vector<std::uint8_t> BuildScheduleBytes();
  // Writes the schedule file to `path`, whole or not at all, through a link to the file it
  // names and keeping the old file's mode: a failed write, or a read-only file, leaves the file
  // that was there. False on failure.
  [[nodiscard]] bool SaveScheduleFile(const std::string& path);

  // Adds the record on its own date (Day, Month, Year), making year and month rows as needed.
  void InsertRecord(const SchRecord& record);
  // The same for a row whose texts the list holds already, so that the days of an item can
  // share them.
  void InsertLine(SchDatRow line);
  int FindOrAddYear(int year);
  int FindOrAddMonth(int month, int yearRow);
  // Adds the row and links it into the day's chain in order of StartTime.
  int InsertRow(int head, int monthRow, int day, SchDatRow line);
  // Marks the rows of the record's item deleted: the whole series for a repeating or
  // multi-day item, else the one item.
  void DeleteItem(const SchRecord& record);
  // Marks one row deleted: RowCount counts it off unless it was deleted already, and its alarm
  // leaves today's list.
  void RemoveRow(int row);
  // A stamp that no row holds yet; waits for the clock when the current one is taken.
  std::int32_t NewUniqueStamp();

  MonthData MonthHasData(int year, int month) const;

 private:
  bool AlarmDueToday(const SchDatRow& row) const;
  // Today's alarm list after a step's rows changed back or again.
  void FollowAlarms(const UndoStep* step);

  SclLoadResult LoadBytes(std::span<const std::uint8_t> bytes, std::uint8_t* owned);

  friend class SclLoader;
  friend class SclWriter;

  ScheduleDocument& doc_;
  StoreServices svc_;
  UndoHistory history_;
};

// The row of a record without its texts; the private flag is 0 or 1.
SchDatRow RecordNumbers(const SchRecord& record);
// The row of a record, its texts (which lose their tabs) kept in the list.
SchDatRow BuildRecordLine(SchDatTable& list, const SchRecord& record);

// The working record of a row: the reverse of BuildRecordLine.
SchRecord RowToRecord(const SchDatTable& list, int row);
// The numbers of a row into a record, its texts left as they are.
void CopyRowNumbers(const SchDatRow& row, SchRecord& record);

// Bit i (Sunday 0 to Saturday 6) for each weekday that is a weekly holiday.
std::uint16_t WeekHolidayMask(const std::array<std::int16_t, 7>& weekHoliday);

}  // namespace sched
