#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "store/row_index.h"
#include "store/table.h"
#include "store/text_arena.h"

namespace sched {

// AncYY: one row a year.
struct AncYYRow {
  static constexpr int kColumns = 27;
  bool blank = false;
  std::int32_t Year = 0;
  std::int32_t NextYear = -1;    // not walked by any code: years are found by scanning rows
  std::int32_t FirstMonth = -1;  // row in AncMM of the year's first month, -1 for none
  std::array<std::int32_t, 12> HolidayOn{};
  std::array<std::int32_t, 12> HolidayOff{};

  std::string Cell(int col) const;
  void SetCell(int col, std::string_view text);
  bool HasHolidayMask() const;
  bool operator==(const AncYYRow&) const = default;
};

// AncMM: one row a month of a year.
struct AncMMRow {
  static constexpr int kColumns = 33;
  bool blank = false;
  std::int32_t Month = 0;
  std::int32_t NextMonth = -1;           // row of the year's next month, -1 at the last
  std::array<std::int32_t, 31> DayHead;  // first SchDatList row of day 1 to 31, -1 for none

  AncMMRow() { DayHead.fill(-1); }
  std::string Cell(int col) const;
  void SetCell(int col, std::string_view text);
  bool operator==(const AncMMRow&) const = default;
};

// Columns of SchDatList.
enum SchDatColumn : int {
  kColPrev,
  kColNext,
  kColDay,
  kColMonth,
  kColYear,
  kColEndDay,
  kColEndMonth,
  kColEndYear,
  kColStartTime,
  kColEndTime,
  kColSubNo,
  kColStamp,
  kColParentSubNo,
  kColParentStamp,
  kColRepeatKind,
  kColPrivate,
  kColVarLen,
  kColTitle,
  kColPlace,
  kColMemo,
  kColAlarmOn,
  kColAlarmSound,
  kColAlarmLead,
  kColDeleted
};

// Values of the Deleted column.
inline constexpr std::int32_t kLive = 0;
inline constexpr std::int32_t kDeleted = 1;

// SchDatList: one row for each occurrence on one day. The fields are as narrow as the file's;
// the texts live in the table's text arena, behind one handle.
struct SchDatRow {
  static constexpr int kColumns = 24;
  std::int32_t Next = -1;
  std::int32_t SubNo = 0;
  std::int32_t Stamp = 0;
  std::int32_t ParentSubNo = 0;
  std::int32_t ParentStamp = 0;
  TextArena::Handle TextHandle = TextArena::kEmpty;  // title, place, memo and alarm sound
  std::uint16_t Year = 0;
  std::uint16_t EndYear = 0;
  std::uint8_t Day = 0;
  std::uint8_t Month = 0;
  std::uint8_t EndDay = 0;
  std::uint8_t EndMonth = 0;
  std::int16_t StartTime = -1;
  std::int16_t EndTime = -1;
  std::int16_t RepeatKind = 0;
  std::int16_t Private = 0;  // the private flag, 0 or 1
  std::int16_t VarLen = 0;
  std::int16_t AlarmOn = 0;
  std::int16_t AlarmLead = 0;
  std::uint8_t Deleted = kLive;
  bool blank = false;

  // The cells of the numbers; the text cells are the table's.
  std::string Cell(int col) const;
  void SetCell(int col, std::string_view text);
  bool IsLive() const { return !blank && Deleted == kLive; }
  std::int32_t StartCode() const;
  std::int32_t EndCode() const;
  SeriesKey Series() const { return {ParentSubNo, ParentStamp}; }
  bool operator==(const SchDatRow&) const = default;
};

// The SchDatList table: its rows and the texts they show.
class SchDatTable : public Table<SchDatRow> {
 public:
  RowTexts Texts(const SchDatRow& row) const { return texts_.Get(row.TextHandle); }
  RowTexts Texts(int row) const { return Texts(At(row)); }
  // Keeps texts in the table's form (UTF-8, CR LF, no tabs) for rows to show.
  TextArena::Handle AddTexts(const RowTexts& texts) { return texts_.Add(texts); }
  // Gives a row new texts.
  void SetTexts(SchDatRow& row, const RowTexts& texts) { row.TextHandle = AddTexts(texts); }

  std::string Cell(int row, int col) const;
  void SetCell(int row, int col, std::string_view text);
  // Adds a row at the end, the tab-joined cells of `line` filling the columns.
  void AddItem(std::string_view line);
  std::string Line(int row) const;
  void Clear() {
    Table::Clear();
    texts_.Clear();
  }

 private:
  TextArena texts_;
};

// SchHlist: cleared with the others, holds nothing.
struct TextRow {
  static constexpr int kColumns = 1;
  bool blank = false;
  std::string text;
  std::string Cell(int) const { return text; }
  void SetCell(int, std::string_view value) { text = value; }
};

// The four tables of the open schedule and their counters.
struct SchDatCTL {
  Table<AncYYRow> AncYY;
  Table<AncMMRow> AncMM;
  SchDatTable SchDatList;
  Table<TextRow> SchHlist;
  int YearCount = 0;           // data rows of AncYY
  int MonthCount = 0;          // data rows of AncMM
  int RowCount = 0;            // live rows of SchDatList
  mutable SeriesIndex Series;  // rows of each series, kept in step with SchDatList
  mutable StampIndex Stamps;   // rows of each Stamp, kept in step with SchDatList
};

// The rows of a series, and the rows that hold a stamp, deleted ones included; the index first
// takes in the rows added since it was last asked.
RowList SeriesRows(const SchDatCTL& ctl, const SeriesKey& key);
RowList StampRows(const SchDatCTL& ctl, std::int32_t stamp);

// Empties the four tables and sets the counters to 0.
void ClearTables(SchDatCTL& ctl);

// The first row of a day's chain, -1 for none.
int GetDayHead(const SchDatCTL& ctl, int monthRow, int day);

// The row of a year in AncYY, -1 when absent.
int FindYearRow(const SchDatCTL& ctl, int year);
// The row of a month in the year's chain, -1 when absent.
int FindMonthRow(const SchDatCTL& ctl, int yearRow, int month);

// The first and last date of a series: the start of its lowest-SubNo live row and the end of
// its highest-SubNo live row. Rows of equal SubNo (the days of an item over several dates,
// loaded from a file) give the earliest start and the latest end. Nothing when no live row
// belongs to the series.
struct SeriesRange {
  std::int32_t firstCode = 0;  // DateCode of the first date
  std::int32_t lastCode = 0;   // DateCode of the last date
  std::int32_t lowestSubNo = 0;
  std::int32_t highestSubNo = 0;
  int firstRow = -1;  // the SchDatList row of the first date, when the caller gave it
  bool found = false;

  // Takes in a live row of the series; `at` is its row number, -1 when unknown.
  void Add(const SchDatRow& row, int at = -1);
};
SeriesRange GetSeriesRange(const SchDatCTL& ctl, std::int32_t parentSubNo,
                           std::int32_t parentStamp);
// The lowest SubNo among the series' live rows, 0 when it has none.
std::int32_t GetSeriesLowestSubNo(const SchDatCTL& ctl, std::int32_t parentSubNo,
                                  std::int32_t parentStamp);

}  // namespace sched
