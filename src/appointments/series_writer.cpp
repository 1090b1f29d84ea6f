#include "appointments/series_writer.h"

#include <algorithm>

#include "appointments/texts.h"
#include "appointments/week_ordinal.h"
#include "core/app_texts.h"

namespace sched {
namespace {

// The week ordinal a weekday rule stores for its start date: a fifth weekday is the last one,
// and a rule that was "Last" stays so while the start is the month's last such weekday, even
// when that is the fourth.
int OrdinalOfStart(const WeekPosition& start, std::uint16_t replacedWord) {
  if (start.N == 5) return kLastOrdinal;
  const std::optional<WeekdayRule> replaced = SplitWeekdayRule(replacedWord);
  if (replaced && replaced->ordinal == kLastOrdinal && start.isLast) return kLastOrdinal;
  return start.N;
}

// Writes the record for one date under the next SubNo.
void AddOccurrence(ScheduleStore& store, SchRecord& record, const CivilDate& start,
                   const CivilDate& end, SeriesIdentity& identity) {
  SetStartDate(record, start);
  SetEndDate(record, end);
  record.SubNo = ++identity.subNo;
  record.Stamp = identity.stamp;
  record.ParentSubNo = identity.parentSubNo;
  record.ParentStamp = identity.parentStamp;
  store.InsertRecord(record);
}

}  // namespace

CivilDate SeriesDates::Plain(int i) const {
  return AddUnits(plan.start, UnitOfOption(plan.option), stride * i);
}

int SeriesDates::LastFitting(int last) const {
  return LargestFitting(0, last, [this](int i) { return FitsInCalendar(plan, i + 1, stride); });
}

SeriesDates EveryDayFrom(const CivilDate& first) {
  return {{kOptionDaily, first, {}}, 1};
}

RuleOnDate RuleFromDate(int option, int step, const CivilDate& first, std::uint16_t replacedWord) {
  const WeekPosition position = Sor_CulcNWfromYMD(first.year, first.month, first.day);
  const int ordinal = OrdinalOfStart(position, replacedWord);
  return {BuildRepeatWord(option, {step, position.W, first.day, first.month, ordinal}),
          {{option, first, {ordinal, position.W}}, step + 1}};
}

int CutAtEndLimit(const SeriesDates& dates, int count, const char* shortened, std::uint16_t& word,
                  Messages& messages) {
  const int wanted = std::max(count - 1, 0);
  const int last = dates.LastFitting(wanted);
  if (last == wanted) return last;
  if (last > 0) {
    ShowWarning(messages, shortened);
  } else {
    word = 0;
    ShowWarning(messages, appointment_texts::kRemovingRegular);
  }
  return last;
}

SeriesIdentity NewSeriesIdentity(ScheduleStore& store) {
  const std::int32_t stamp = store.NewUniqueStamp();
  return {0, stamp, 1, stamp};
}

SeriesIdentity NewSingleIdentity(ScheduleStore& store) {
  return {-1, store.NewUniqueStamp(), 0, 0};
}

SchRecord WriteSeries(ScheduleStore& store, SchRecord record, const SeriesDates& dates, int last,
                      const CivilDate& end, SeriesIdentity& identity) {
  SchRecord first;
  for (int i = 0; i <= last; ++i) {
    AddOccurrence(store, record, dates.Of(i), end, identity);
    if (i == 0) first = record;
  }
  // The inserts listed today's alarms; one sort and one arming serve the whole write.
  if (record.AlarmOn != 0) {
    store.Alarms().SortTodayAlarms();
    store.Alarms().ArmNextAlarm();
  }
  return first;
}

void ShowWarning(Messages& messages, const char* text) {
  messages.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

}  // namespace sched
