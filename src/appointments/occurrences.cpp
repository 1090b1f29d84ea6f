#include "appointments/occurrences.h"

#include <utility>

#include "appointments/item_limits.h"
#include "appointments/texts.h"
#include "core/app_texts.h"
#include "core/text_case.h"
#include "store/scl_format.h"
#include "store/stamp.h"

namespace sched {
namespace {

using Times = std::pair<int, int>;

// The start and end minutes, -1 for an all-day item; nothing when the start is after the end.
std::optional<Times> TimesOf(const AppointmentInput& input) {
  if (input.allDay) return Times{-1, -1};
  if (input.startMinutes > input.endMinutes) return std::nullopt;
  return Times{input.startMinutes, input.endMinutes};
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
  SeriesIdentity identity = IdentityOfSingle(replaced);
  FillItem(input, 0, times->first, times->second);
  Write(EveryDayFrom(input.start), 0, input.end, identity);
  return true;
}

bool OccurrenceMaker::ExpandOverDays(const AppointmentInput& input,
                                     const std::optional<ReplacedItem>& replaced) {
  const int days = DaySerial(input.end) - DaySerial(input.start) + 1;
  if (days > kLongestSpan) {
    ShowWarning(messages_, appointment_texts::kOverlap30Days);
    return false;
  }
  if (days < 1) return false;
  SeriesIdentity identity = IdentityOfSeries(replaced);
  // An item over several dates has no times.
  FillItem(input, kMultiDayKind, -1, -1);
  Write(EveryDayFrom(input.start), days - 1, input.end, identity);
  return true;
}

bool OccurrenceMaker::ExpandDaily(const AppointmentInput& input,
                                  const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionDaily);
}

bool OccurrenceMaker::ExpandWeekly(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionWeekly);
}

bool OccurrenceMaker::ExpandMonthly(const AppointmentInput& input,
                                    const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionMonthly);
}

bool OccurrenceMaker::ExpandYearly(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionYearly);
}

bool OccurrenceMaker::ExpandMonthlyWeekday(const AppointmentInput& input,
                                           const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionMonthlyWeekday);
}

bool OccurrenceMaker::ExpandYearlyWeekday(const AppointmentInput& input,
                                          const std::optional<ReplacedItem>& replaced) {
  return ExpandRepeat(input, replaced, kOptionYearlyWeekday);
}

bool OccurrenceMaker::ExpandRepeat(const AppointmentInput& input,
                                   const std::optional<ReplacedItem>& replaced, int option) {
  const std::optional<Times> times = TimesOf(input);
  if (!times) return false;
  SeriesIdentity identity = IdentityOfSeries(replaced);
  work_.RepeatStepUsed = work_.RepeatStep;
  const RuleOnDate rule =
      RuleFromDate(option, work_.RepeatStepUsed, input.start, work_.WorkRepeatKind);
  work_.WorkRepeatKind = rule.word;
  const int last = CutAtEndLimit(rule.dates, work_.RepeatCount, appointment_texts::kBeyond2099,
                                 work_.WorkRepeatKind, messages_);
  FillItem(input, static_cast<std::int16_t>(work_.WorkRepeatKind), times->first, times->second);
  // Every record ends on the last occurrence's plain date, which a weekday rule may not meet.
  Write(rule.dates, last, rule.dates.Plain(last), identity);
  return true;
}

SeriesIdentity OccurrenceMaker::IdentityOfSeries(const std::optional<ReplacedItem>& replaced) {
  if (!replaced) return NewSeriesIdentity(store_);
  const std::int32_t stamp = SetTopBits(replaced->Stamp);
  return {static_cast<std::int16_t>(replaced->SubNo - 1), stamp, replaced->ParentSubNo, stamp};
}

SeriesIdentity OccurrenceMaker::IdentityOfSingle(const std::optional<ReplacedItem>& replaced) {
  if (!replaced) return NewSingleIdentity(store_);
  return {static_cast<std::int16_t>(replaced->SubNo - 1), SetTopBits(replaced->Stamp), 0, 0};
}

void OccurrenceMaker::FillItem(const AppointmentInput& input, std::int16_t repeatKind,
                               int startTime, int endTime) {
  record_ = SchRecord{};
  record_.StartTime = static_cast<std::int16_t>(startTime);
  record_.EndTime = static_cast<std::int16_t>(endTime);
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
  record_.VarLen = VarLenOf(record_, store_.Document().FileCodePage);
}

void OccurrenceMaker::Write(const SeriesDates& dates, int last, const CivilDate& end,
                            SeriesIdentity& identity) {
  record_ = WriteSeries(store_, record_, dates, last, end, identity);
  const CivilDate shown = dates.Of(last);
  store_.Document().SetShownDate(shown);
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

}  // namespace sched
