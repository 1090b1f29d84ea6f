#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "interchange/csv_fields.h"
#include "platform/clock.h"
#include "platform/progress_display.h"
#include "store/sch_record.h"
#include "store/schedule_store.h"

namespace sched {

// Room for the texts that a conversion has to change, kept from row to row.
struct CsvTextRoom {
  std::array<std::string, kCsvFieldCount> untabbed;
  std::string title;
  std::string place;
  std::string memo;
};

// A row's values after the conversion of its texts. The texts are views into the row's fields
// or into the conversion's room.
struct CsvConverted {
  std::string_view title;
  std::string_view place;
  std::string_view memo;
  std::int16_t Private = 0;
  std::int16_t AlarmOn = 0;
  CivilDate start;
  int startTime = 0;  // minutes after 0:00
  CivilDate end;
  int endTime = 0;
  CivilDate alarmDate;
  int alarmTime = 0;
  bool allDay = false;
  bool endValid = true;  // the end lies on or after the calendar's first day
};

// 1 for "真", "True", "TRUE" or a text whose leading number is 1; 0 for everything else.
std::int16_t CsvBoolean(std::string_view text);

// The row's values into `converted`; false when the row is rejected: its start is no date, no
// time, or lies outside the calendar, or it ends before it starts. Fields with tabs are given
// blanks instead, in `room`.
bool ConvertCsvRow(CsvRowFields& row, CsvTextRoom& room, CsvConverted& converted);

// Minutes from the alarm to the start, at most 999; an alarm on an earlier day counts only
// the times of day.
std::int16_t ComputeCsvLead(const CivilDate& start, int startTime, const CivilDate& alarmDate,
                            int alarmTime);

struct CsvImportServices {
  ScheduleStore& store;
  ProgressDisplay& progress;  // 0 to 100 over the file's bytes
  const Clock& clock;
};

// Adds the records of the rows to a store emptied for them, numbering them as one import: the
// stamps its rows hold are the ones it gave.
class CsvImporter {
 public:
  explicit CsvImporter(CsvImportServices services) : s_(services) {}

  // Adds the record of a converted row, or one for each of its days, under the clock's stamp;
  // a rejected row (nothing) adds nothing. The row's values are the importer's to change.
  void AddCsvRecord(std::optional<CsvConverted>& row);

 private:
  // A new import stamp is taken when the clock's stamp moves on, as read every few hundred rows.
  void TakeClockStamp();
  // Makes room for `count` more numbers under one stamp: before SubNo would pass its largest
  // value, the import goes on under a stamp that no row holds.
  void ReserveSeq(int count);
  std::int32_t UnusedStamp(std::int32_t candidate) const;
  // Adds the row under ImportStamp.
  void Insert(const SchDatRow& line);
  // The record's row with texts_, which are added to the table: they are in the table's form
  // already.
  SchDatRow LineOf(const SchRecord& record);
  void AddCsvSingleDay(SchRecord& record, const CsvConverted& row);
  void AddCsvSpan(SchRecord& record, const CsvConverted& row, int days);
  void SetTimes(SchRecord& record, const CsvConverted& row) const;

  CsvImportServices s_;
  SchRecord record_;  // the numbers of the record being added; its texts are left empty
  RowTexts texts_;    // the texts of the record being added, views into its row
  std::int32_t ImportSeq = 1;
  std::int32_t ImportStamp = 0;
  std::int32_t clockStamp_ = 0;  // the clock's stamp when ImportStamp was last taken from it
  static constexpr unsigned kRowsPerClockReading = 256;
  unsigned rowsSinceClock_ = 0;
  std::vector<std::int32_t> heldStamps_;  // the stamps of the rows added, the last one last
};

// Empties the store and fills it from the CSV file's bytes, in the mapping of `settings`;
// the store's code page reads files that are not UTF-8. The shown date stays. False when the
// file could not be read to its end: the store then holds what was read.
bool ImportCsvFile(CsvImportServices services, std::string_view bytes, CsvSettings settings);

}  // namespace sched
