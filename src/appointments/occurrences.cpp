#include "appointments/occurrences.h"

#include <algorithm>
#include <utility>

#include "appointments/texts.h"
#include "appointments/week_ordinal.h"
#include "core/app_texts.h"
#include "core/text_case.h"
#include "store/scl_format.h"

namespace sched {
namespace {

using Times = std::pair<int, int>;

// The start and end minutes, -1 for an all-day item; nothing when the start is after the end.
std::optional<Times> TimesOf(const AppointmentInput& input) {
  if (input.allDay) return Times{-1, -1};
  if (input.startMinutes > input.endMinutes) return std::nullopt;
  return Times{input.startMinutes, input.endMinutes};
}

bool PastEndLimit(const CivilDate& date) {
  return DateCode(date.year, date.month, date.day) >
         DateCode(kEndLimit.year, kEndLimit.month, kEndLimit.day);
}

CivilDate DateOfCode(std::int32_t code) {
  return {code / 10000, code / 100 % 100, code % 100};
}

std::int32_t WithTopBits(std::int32_t stamp) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(stamp) | 0xC0000000u);
}

// The week ordinal a weekday rule stores for its start date: a fifth weekday is the last one,
// and a rule that was "Last" stays so while the start is the month's last such weekday, even
// when that is the fourth.
int OrdinalOfStart(const WeekPosition& start, std::uint16_t replacedWord) {
  if (start.N == 5) return kLastOrdinal;
  const std::optional<WeekdayRule> replaced = SplitWeekdayRule(replacedWord);
  if (replaced && replaced->ordinal == kLastOrdinal && start.isLast) return kLastOrdinal;
  return start.N;
}

}  // namespace

bool OccurrenceMaker::Expand(const AppointmentInput& input,
                             const std::optional<ReplacedItem>& replaced) {
  switch (work_.RepeatCode) {
    case kCodeOverDays: return ExpandOverDays(input, replaced);
    case kCodeDaily: return ExpandDaily(input, replaced);
    case kCodeWeekly: return ExpandWeekly(input, replaced);
    case kCodeMonthly: return ExpandMonthly(input, replaced);
    case kCodeYearly: return ExpandYearly(input, replaced);
    case kCodeMonthlyWeekday: return ExpandMonthlyWeekday(input, replaced);
    case kCodeYearlyWeekday: return ExpandYearlyWeekday(input, replaced);
    default: return ExpandSingle(input, replaced);
  }
}

bool OccurrenceMaker::ExpandSingle(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced) {
  const std::optional<Times> times = TimesOf(input);
  if (!times) return false;
  Identity identity = SingleIdentity(replaced);
  FillItem(input, 0);
  AddOccurrence(input.start, input.end, times->first, times->second, identity);
  Finish(record_);
  return true;
}

bool OccurrenceMaker::ExpandOverDays(const AppointmentInput& input,
                                     const std::optional<ReplacedItem>& replaced) {
  const int days = DaySerial(input.end) - DaySerial(input.start) + 1;
  if (days > 30) {
    Warn(appointment_texts::kOverlap30Days);
    return false;
  }
  if (days < 1) return false;
  Identity identity = SeriesIdentity(replaced);
  FillItem(input, kMultiDayKind);
  SchRecord first;
  for (int i = 0; i < days; ++i) {
    // An item over several dates has no times.
    AddOccurrence(AddDays(input.start, i), input.end, -1, -1, identity);
    if (i == 0) first = record_;
  }
  Finish(first);
  return true;
}

bool OccurrenceMaker::ExpandDaily(const AppointmentInput& input,
                                  const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionDaily, false});
}

bool OccurrenceMaker::ExpandWeekly(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionWeekly, false});
}

bool OccurrenceMaker::ExpandMonthly(const AppointmentInput& input,
                                    const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionMonthly, false});
}

bool OccurrenceMaker::ExpandYearly(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionYearly, false});
}

bool OccurrenceMaker::ExpandMonthlyWeekday(const AppointmentInput& input,
                                           const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionMonthlyWeekday, true});
}

bool OccurrenceMaker::ExpandYearlyWeekday(const AppointmentInput& input,
                                          const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, {kOptionYearlyWeekday, true});
}

bool OccurrenceMaker::ExpandRepeat(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced, RepeatPlan plan) {
  const std::optional<Times> times = TimesOf(input);
  if (!times) return false;
  Identity identity = SeriesIdentity(replaced);
  const CivilDate start = input.start;
  const RepeatUnit unit = UnitOfOption(plan.option);
  work_.RepeatStepUsed = work_.RepeatStep;
  const int stride = work_.RepeatStepUsed + 1;
  // Every date is reckoned from the start, so a short month does not shorten the later ones.
  const auto plainDate = [&](int i) { return AddUnits(start, unit, stride * i); };

  const WeekPosition position = Sor_CulcNWfromYMD(start.year, start.month, start.day);
  const int ordinal = OrdinalOfStart(position, work_.WorkRepeatKind);
  work_.WorkRepeatKind = BuildRepeatWord(
      plan.option, {work_.RepeatStepUsed, position.W, start.day, start.month, ordinal});

  int last = std::max(work_.RepeatCount - 1, 0);
  if (PastEndLimit(plainDate(last))) {
    while (last > 0 && PastEndLimit(plainDate(last))) --last;
    if (last > 0) {
      Warn(appointment_texts::kBeyond2099);
    } else {
      work_.WorkRepeatKind = 0;
      Warn(appointment_texts::kRemovingRegular);
    }
  }
  // Every record ends on the last occurrence's plain date, which a weekday rule may not meet.
  const CivilDate end = plainDate(last);

  FillItem(input, static_cast<std::int16_t>(work_.WorkRepeatKind));
  SchRecord first;
  for (int i = 0; i <= last; ++i) {
    CivilDate date = plainDate(i);
    if (plan.byWeekday) date.day = Sor_CulcDDfromYMNW(date.year, date.month, ordinal, position.W);
    AddOccurrence(date, end, times->first, times->second, identity);
    if (i == 0) first = record_;
  }
  Finish(first);
  return true;
}

OccurrenceMaker::Identity OccurrenceMaker::SeriesIdentity(
    const std::optional<ReplacedItem>& replaced) {
  if (!replaced) {
    const std::int32_t stamp = store_.NewUniqueStamp();
    return {0, stamp, 1, stamp};
  }
  const std::int32_t stamp = WithTopBits(replaced->Stamp);
  return {static_cast<std::int16_t>(replaced->SubNo - 1), stamp, replaced->ParentSubNo, stamp};
}

OccurrenceMaker::Identity OccurrenceMaker::SingleIdentity(
    const std::optional<ReplacedItem>& replaced) {
  if (!replaced) return {-1, store_.NewUniqueStamp(), 0, 0};
  return {static_cast<std::int16_t>(replaced->SubNo - 1), WithTopBits(replaced->Stamp), 0, 0};
}

void OccurrenceMaker::FillItem(const AppointmentInput& input, std::int16_t repeatKind) {
  record_ = SchRecord{};
  record_.Title = input.title.empty() ? appointment_texts::kNoTitle : input.title;
  record_.Place = input.place;
  record_.Memo = input.memo;
  record_.RepeatKind = repeatKind;
  record_.Private = input.privateItem ? store_.Document().PrivateLevel : std::int16_t{0};
  if (input.alarm) {
    record_.AlarmOn = 1;
    record_.AlarmSound = input.sound.empty() ? kDefaultAlarmSound : ToUpperAscii(input.sound);
    record_.AlarmLead = static_cast<std::int16_t>(input.alarmLead);
  }
  record_.VarLen = VarLenOf(record_);
}

void OccurrenceMaker::AddOccurrence(const CivilDate& start, const CivilDate& end, int startTime,
                                    int endTime, Identity& identity) {
  record_.Prev = -1;
  record_.Next = -1;
  record_.Day = static_cast<std::uint8_t>(start.day);
  record_.Month = static_cast<std::uint8_t>(start.month);
  record_.Year = static_cast<std::uint16_t>(start.year);
  ScheduleDocument& doc = store_.Document();
  doc.CurYear = start.year;
  doc.CurMonth = start.month;
  doc.CurDay = start.day;
  record_.EndDay = static_cast<std::uint8_t>(end.day);
  record_.EndMonth = static_cast<std::uint8_t>(end.month);
  record_.EndYear = static_cast<std::uint16_t>(end.year);
  record_.StartTime = static_cast<std::int16_t>(startTime);
  record_.EndTime = static_cast<std::int16_t>(endTime);
  record_.SubNo = ++identity.subNo;
  record_.Stamp = identity.stamp;
  record_.ParentSubNo = identity.parentSubNo;
  record_.ParentStamp = identity.parentStamp;
  store_.InsertRecord(record_);
}

void OccurrenceMaker::Finish(const SchRecord& first) {
  record_ = first;
  // The insert listed today's alarms; one sort and one arming serve the whole write.
  if (record_.AlarmOn != 0) {
    store_.Alarms().SortTodayAlarms();
    store_.Alarms().ArmNextAlarm();
  }
}

void OccurrenceMaker::Warn(const char* text) {
  messages_.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

SeriesInEditor LoadSeriesIntoEditor(const SchDatCTL& ctl, RepeatWork& work, std::uint16_t word,
                                    std::int32_t parentSubNo, std::int32_t parentStamp) {
  const SeriesRange range = GetSeriesRange(ctl, parentSubNo, parentStamp);
  SeriesInEditor series;
  series.first = DateOfCode(range.firstCode);
  if (range.firstRow >= 0) {
    const SchDatRow& row = ctl.SchDatList.At(range.firstRow);
    series.StartTime = row.StartTime;
    series.EndTime = row.EndTime;
  }
  const CivilDate last = DateOfCode(range.lastCode);
  work.RepeatLastCode = range.lastCode;
  work.RepeatLastYear = static_cast<std::int16_t>(last.year);
  work.RepeatLastMonth = static_cast<std::int16_t>(last.month);
  work.RepeatLastDay = static_cast<std::int16_t>(last.day);
  work.Decode(word);
  const int units = UnitsBetween(series.first, last, UnitOfOption(work.RepeatOption));
  work.RepeatCount = static_cast<std::int16_t>(units / (work.RepeatStep + 1) + 1);
  return series;
}

SpanInEditor LoadSpanIntoEditor(const SchDatCTL& ctl, std::int32_t parentSubNo,
                                std::int32_t parentStamp) {
  const SeriesRange range = GetSeriesRange(ctl, parentSubNo, parentStamp);
  return {DateOfCode(range.firstCode), DateOfCode(range.lastCode)};
}

void RemoveSeries(ScheduleStore& store, const SchRecord& saved) {
  store.DeleteItem(saved);
}

}  // namespace sched
