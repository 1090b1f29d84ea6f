#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "appointments/repeat_rule.h"
#include "appointments/series_writer.h"
#include "core/calendar.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// What the making of occurrences reads of the edit dialog.
struct AppointmentInput {
  CivilDate start;  // ImDate1(0)
  CivilDate end;    // ImDate1(1)
  bool allDay = false;
  int startMinutes = 0;  // DTPicker2(0), minutes after 0:00; not read for an all-day item
  int endMinutes = 0;    // DTPicker2(1)
  std::string title;
  std::string place;
  std::string memo;
  bool alarm = false;
  int alarmLead = 0;
  std::string sound;  // the name chosen in the sound list
  bool privateItem = false;
};

// The item an edit replaces: the SubNo to keep (the series' lowest one for a series), and the
// old Stamp and ParentSubNo.
struct ReplacedItem {
  std::int16_t SubNo = 0;
  std::int32_t Stamp = 0;
  std::int16_t ParentSubNo = 0;
};

// Turns the confirmed dialog into records: one for a plain item, one a day for an item over
// several dates, one an occurrence for a repeating item, all inserted at once.
class OccurrenceMaker {
 public:
  OccurrenceMaker(ScheduleStore& store, Messages& messages, RepeatWork& work)
      : store_(store), messages_(messages), work_(work) {}

  // Writes the item by work.RepeatCode: the six repeat kinds, 16 for an item over several
  // dates, anything else as one plain item. New records get a new stamp; those of a replaced
  // item keep its identity. A repeat kind reads RepeatCount and RepeatStep, and
  // WorkRepeatKind as the word it replaces (a "Last" weekday stays "Last"); it leaves the word
  // it stored in WorkRepeatKind. False, with nothing written, when the start time is after the
  // end time, or a span ends before it starts or is longer than kLongestSpan days.
  bool Expand(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);

  // The working record after a write: the first occurrence written.
  const SchRecord& Record() const { return record_; }

 private:
  bool ExpandSingle(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandOverDays(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandDaily(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandWeekly(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandMonthly(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandYearly(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced);
  bool ExpandMonthlyWeekday(const AppointmentInput& input,
                            const std::optional<ReplacedItem>& replaced);
  bool ExpandYearlyWeekday(const AppointmentInput& input,
                           const std::optional<ReplacedItem>& replaced);
  // The six repeat kinds (`option` 1 to 6): the rule word from the start date, the count cut at
  // kEndLimit, one record an occurrence, each ending on the last occurrence's plain date.
  bool ExpandRepeat(const AppointmentInput& input, const std::optional<ReplacedItem>& replaced,
                    int option);

  SeriesIdentity IdentityOfSeries(const std::optional<ReplacedItem>& replaced);
  SeriesIdentity IdentityOfSingle(const std::optional<ReplacedItem>& replaced);
  // The working record's times, texts, flags and alarm, alike in every record of the write.
  void FillItem(const AppointmentInput& input, std::int16_t repeatKind, int startTime, int endTime);
  // Writes the working record on occurrences 0 to `last`; the shown date follows them, and the
  // working record becomes the first one written.
  void Write(const SeriesDates& dates, int last, const CivilDate& end, SeriesIdentity& identity);

  ScheduleStore& store_;
  Messages& messages_;
  RepeatWork& work_;
  SchRecord record_;
};

// The series of an occurrence opened for editing, as the edit dialog shows it: the date of its
// first occurrence and its times (-1 for all day). Fills RepeatLastCode/Year/Month/Day from the
// last occurrence, decodes the word into `work` and works out RepeatCount from the first and
// last dates and the interval. The series is found by its index, not by a walk of all rows.
struct SeriesInEditor {
  CivilDate first;
  int StartTime = -1;
  int EndTime = -1;
};
SeriesInEditor LoadSeriesIntoEditor(const SchDatCTL& ctl, RepeatWork& work, std::uint16_t word,
                                    std::int32_t parentSubNo, std::int32_t parentStamp);

// The first and last date of an item over several dates.
struct SpanInEditor {
  CivilDate first;
  CivilDate last;
};
SpanInEditor LoadSpanIntoEditor(const SchDatCTL& ctl, std::int32_t parentSubNo,
                                std::int32_t parentStamp);

}  // namespace sched
