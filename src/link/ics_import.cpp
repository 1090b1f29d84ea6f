#include "link/ics_import.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <set>
#include <string>

#include "appointments/repeat_rule.h"
#include "link/ics_rules.h"
#include "store/stamp.h"

namespace sched {
namespace {

// Bounds of what one event may make, whatever its rules and dates say: a rule's steps, the
// days of an occurrence, the records of all its occurrences.
constexpr int kMostRuleSteps = 100000;
constexpr int kMostDaysOfAnOccurrence = 366;
constexpr std::size_t kMostRecordsOfAnEvent = 40000;
constexpr int kOpenRuleYears = 5;
constexpr int kMostLead = 999;
constexpr int kMostSubNo = 32767;

// A moment as the schedule holds it: a local date, and minutes of the day or -1 for a date alone.
struct LocalTime {
  CivilDate date;
  int minutes = -1;
  auto operator<=>(const LocalTime&) const = default;
};

// A time's fields out of their ranges (a 25th hour, a 13th month) count on into the next.
LocalTime ToLocal(icaltimetype t) {
  t = icaltime_normalize(t);
  if (t.is_date) return {{t.year, t.month, t.day}, -1};
  if (t.zone != nullptr) {
    const std::time_t when = icaltime_as_timet_with_zone(t, t.zone);
    std::tm local{};
    localtime_r(&when, &local);
    return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
            local.tm_hour * 60 + local.tm_min};
  }
  return {{t.year, t.month, t.day}, t.hour * 60 + t.minute};
}

// The zone of a property's TZID: the calendar's own, else a known one; none when there is no
// TZID or nobody knows it.
icaltimezone* ZoneOf(icalproperty* prop, icalcomponent* calendar) {
  icalparameter* tzid = icalproperty_get_first_parameter(prop, ICAL_TZID_PARAMETER);
  if (tzid == nullptr) return nullptr;
  const char* name = icalparameter_get_tzid(tzid);
  icaltimezone* zone = icalcomponent_get_timezone(calendar, name);
  return zone != nullptr ? zone : icaltimezone_get_builtin_timezone(name);
}

// A time of a property with its zone, when it is no date and no UTC time.
icaltimetype Zoned(icaltimetype t, icalproperty* prop, icalcomponent* calendar) {
  if (!t.is_date && !icaltime_is_utc(t)) t.zone = ZoneOf(prop, calendar);
  return t;
}

bool IsOpen(const icalrecurrencetype& recur) {
  return recur.count == 0 && icaltime_is_null_time(recur.until);
}

// The starts of an event's occurrences: DTSTART, what its rules give within the bounds, and
// its further dates.
std::vector<icaltimetype> Starts(icalcomponent* event, icalcomponent* calendar,
                                 const icaltimetype& start, const CivilDate& today) {
  std::vector<icaltimetype> starts{start};
  const CivilDate last{kLastYear, 12, 31};
  for (icalproperty* p = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY); p != nullptr;
       p = icalcomponent_get_next_property(event, ICAL_RRULE_PROPERTY)) {
    const icalrecurrencetype recur = icalproperty_get_rrule(p);
    const CivilDate limit =
        IsOpen(recur) ? std::min(last, AddMonths(today, 12 * kOpenRuleYears)) : last;
    // The iterator steps rules on a date wrongly: it goes from midnight instead.
    icaltimetype from = start;
    if (from.is_date) from = TimeOf({start.year, start.month, start.day}, 0);
    icalrecur_iterator* it = icalrecur_iterator_new(recur, from);
    if (it == nullptr) continue;
    for (int step = 0; step < kMostRuleSteps; ++step) {
      icaltimetype t = icalrecur_iterator_next(it);
      if (icaltime_is_null_time(t) || CivilDate{t.year, t.month, t.day} > limit) break;
      if (start.is_date) t = DayOf({t.year, t.month, t.day});
      t.zone = start.zone;
      starts.push_back(t);
    }
    icalrecur_iterator_free(it);
  }
  for (icalproperty* p = icalcomponent_get_first_property(event, ICAL_RDATE_PROPERTY); p != nullptr;
       p = icalcomponent_get_next_property(event, ICAL_RDATE_PROPERTY)) {
    const icaldatetimeperiodtype value = icalproperty_get_rdate(p);
    const icaltimetype t = icaltime_is_null_time(value.time) ? value.period.start : value.time;
    if (!icaltime_is_null_time(t)) starts.push_back(Zoned(t, p, calendar));
  }
  return starts;
}

// The local starts that the event's exceptions take away.
std::set<LocalTime> Exceptions(icalcomponent* event, icalcomponent* calendar) {
  std::set<LocalTime> taken;
  for (icalproperty* p = icalcomponent_get_first_property(event, ICAL_EXDATE_PROPERTY);
       p != nullptr; p = icalcomponent_get_next_property(event, ICAL_EXDATE_PROPERTY)) {
    taken.insert(ToLocal(Zoned(icalproperty_get_exdate(p), p, calendar)));
  }
  return taken;
}

bool Taken(const std::set<LocalTime>& taken, const LocalTime& start) {
  return taken.count(start) != 0 || taken.count({start.date, -1}) != 0;
}

// The days an occurrence covers, from its local start and end.
std::vector<CivilDate> DaysOf(const LocalTime& start, const LocalTime& end) {
  CivilDate last = end.date;
  const bool endsAtMidnight = start.minutes < 0 || end.minutes == 0;
  if (endsAtMidnight && last > start.date) last = AddDays(last, -1);
  std::vector<CivilDate> days{start.date};
  const CivilDate lastOfCalendar{kLastYear, 12, 31};
  while (days.back() < last && days.back() < lastOfCalendar &&
         days.size() < kMostDaysOfAnOccurrence) {
    days.push_back(AddDays(days.back(), 1));
  }
  return days;
}

std::string Memo(icalcomponent* event) {
  std::string memo;
  if (const char* place = icalcomponent_get_location(event); place != nullptr && *place != 0) {
    memo = std::string("Place: ") + place + "\r\n";
  }
  if (const char* text = icalcomponent_get_description(event); text != nullptr) {
    for (const char* c = text; *c != 0; ++c) {
      if (*c == '\n' && (c == text || c[-1] != '\r')) memo += '\r';
      memo += *c;
    }
  }
  return memo;
}

// The lead of the event's first alarm that rings before its start, or at it.
std::optional<int> Lead(icalcomponent* event) {
  for (icalcomponent* a = icalcomponent_get_first_component(event, ICAL_VALARM_COMPONENT);
       a != nullptr; a = icalcomponent_get_next_component(event, ICAL_VALARM_COMPONENT)) {
    icalproperty* p = icalcomponent_get_first_property(a, ICAL_TRIGGER_PROPERTY);
    if (p == nullptr) continue;
    icalparameter* related = icalproperty_get_first_parameter(p, ICAL_RELATED_PARAMETER);
    if (related != nullptr && icalparameter_get_related(related) == ICAL_RELATED_END) continue;
    const icaltriggertype trigger = icalproperty_get_trigger(p);
    if (!icaltime_is_null_time(trigger.time)) continue;
    const int seconds = icaldurationtype_as_int(trigger.duration);
    if (seconds <= 0) return std::min(kMostLead, -seconds / 60);
  }
  return std::nullopt;
}

// Gives the numbers of the records: a stamp shared by them all, and SubNos counted from 1; a
// new stamp when a group of records would not fit the SubNos that are left.
class Numbering {
 public:
  explicit Numbering(std::int32_t stamp) : stamp_(stamp) {}
  // The first SubNo of `count` records in a row under Stamp().
  std::int16_t Take(int count) {
    if (next_ + count - 1 > kMostSubNo) {
      stamp_ = SetTopBits(stamp_ + 1);
      next_ = 1;
    }
    const int first = next_;
    next_ += count;
    return static_cast<std::int16_t>(first);
  }
  std::int32_t Stamp() const { return stamp_; }

 private:
  std::int32_t stamp_;
  int next_ = 1;
};

// Records of one event's occurrences.
class EventRecords {
 public:
  EventRecords(icalcomponent* event, Numbering& numbers, std::vector<SchRecord>& out)
      : numbers_(numbers), out_(out) {
    const char* title = icalcomponent_get_summary(event);
    base_.Title = title != nullptr ? title : "";
    base_.Memo = Memo(event);
    icalproperty* classProp = icalcomponent_get_first_property(event, ICAL_CLASS_PROPERTY);
    const icalproperty_class kind =
        classProp != nullptr ? icalproperty_get_class(classProp) : ICAL_CLASS_PUBLIC;
    base_.Private = kind == ICAL_CLASS_PRIVATE || kind == ICAL_CLASS_CONFIDENTIAL ? 1 : 0;
    if (const std::optional<int> lead = Lead(event)) {
      base_.AlarmOn = 1;
      base_.AlarmLead = static_cast<std::int16_t>(*lead);
    }
  }

  // A series of single days on `dates` with the rule word, all at the same times.
  void Series(const std::vector<CivilDate>& dates, std::uint16_t word, const LocalTime& start,
              const LocalTime& end) {
    Add(dates, static_cast<std::int16_t>(word), start, end);
  }

  // One occurrence: an item of a day, or over its days.
  void Occurrence(const LocalTime& start, const LocalTime& end) {
    const std::vector<CivilDate> days = DaysOf(start, end);
    Add(days, days.size() > 1 ? static_cast<std::int16_t>(kOverDaysWord) : std::int16_t{0}, start,
        end);
  }

 private:
  void Add(const std::vector<CivilDate>& dates, std::int16_t kind, const LocalTime& start,
           const LocalTime& end) {
    const bool series = kind != 0;
    const std::int16_t first = numbers_.Take(static_cast<int>(dates.size()));
    SchRecord r = base_;
    r.RepeatKind = kind;
    r.Stamp = numbers_.Stamp();
    r.ParentSubNo = series ? first : std::int16_t{0};
    r.ParentStamp = series ? r.Stamp : 0;
    r.StartTime = static_cast<std::int16_t>(start.minutes);
    r.EndTime = static_cast<std::int16_t>(start.minutes < 0 ? -1 : std::max(end.minutes, 0));
    if (start.minutes >= 0 && end.date == start.date && end.minutes < start.minutes) {
      r.EndTime = r.StartTime;
    }
    for (std::size_t i = 0; i < dates.size(); ++i) {
      r.SubNo = static_cast<std::int16_t>(first + static_cast<int>(i));
      SetStartDate(r, dates[i]);
      SetEndDate(r, dates[i]);
      out_.push_back(r);
    }
  }

  Numbering& numbers_;
  std::vector<SchRecord>& out_;
  SchRecord base_;
};

// The occurrences of an event as records.
void AddEvent(icalcomponent* event, icalcomponent* calendar, const std::set<LocalTime>& replaced,
              const CivilDate& today, Numbering& numbers, std::vector<SchRecord>& out) {
  const icaltimetype start = icalcomponent_get_dtstart(event);
  if (icaltime_is_null_time(start) || !icaltime_is_valid_time(start)) return;
  icaltimetype end = icalcomponent_get_dtend(event);
  if (icaltime_is_null_time(end))
    end = start.is_date ? DayOf(AddDays({start.year, start.month, start.day}, 1)) : start;
  const icaldurationtype length = icaltime_subtract(end, start);
  std::set<LocalTime> taken = Exceptions(event, calendar);
  taken.insert(replaced.begin(), replaced.end());
  std::vector<std::pair<LocalTime, LocalTime>> occurrences;
  std::set<LocalTime> seen;
  for (const icaltimetype& s : Starts(event, calendar, start, today)) {
    const LocalTime from = ToLocal(s);
    if (from.date.year < kFirstYear || from.date.year > kLastYear || Taken(taken, from) ||
        !seen.insert(from).second) {
      continue;
    }
    occurrences.emplace_back(from, ToLocal(icaltime_add(s, length)));
  }
  std::sort(occurrences.begin(), occurrences.end());
  EventRecords records(event, numbers, out);
  std::vector<CivilDate> dates;
  bool sameTimes = replaced.empty();
  for (const auto& [from, to] : occurrences) {
    sameTimes = sameTimes && DaysOf(from, to).size() == 1 &&
                from.minutes == occurrences.front().first.minutes &&
                to.minutes == occurrences.front().second.minutes &&
                (dates.empty() || dates.back() != from.date);
    dates.push_back(from.date);
  }
  if (sameTimes && dates.size() > 1 && dates.size() <= static_cast<std::size_t>(kMostSubNo)) {
    if (const std::optional<std::uint16_t> word = RuleWordOf(dates)) {
      records.Series(dates, *word, occurrences.front().first, occurrences.front().second);
      return;
    }
  }
  const std::size_t before = out.size();
  for (const auto& [from, to] : occurrences) {
    if (out.size() - before >= kMostRecordsOfAnEvent) break;
    records.Occurrence(from, to);
  }
}

}  // namespace

std::optional<std::vector<SchRecord>> RecordsOfCalendar(std::string_view ics,
                                                        const CivilDate& today,
                                                        std::int32_t stamp) {
  icalerror_set_errors_are_fatal(0);
  Component calendar(icalparser_parse_string(std::string(ics).c_str()));
  if (!calendar || icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT) {
    return std::nullopt;
  }
  // The occurrences that events with a RECURRENCE-ID take over, by UID.
  std::map<std::string, std::set<LocalTime>> replaced;
  icalcomponent* cal = calendar.get();
  for (icalcomponent* e = icalcomponent_get_first_component(cal, ICAL_VEVENT_COMPONENT);
       e != nullptr; e = icalcomponent_get_next_component(cal, ICAL_VEVENT_COMPONENT)) {
    icalproperty* id = icalcomponent_get_first_property(e, ICAL_RECURRENCEID_PROPERTY);
    const char* uid = icalcomponent_get_uid(e);
    if (id != nullptr && uid != nullptr) {
      replaced[uid].insert(ToLocal(Zoned(icalproperty_get_recurrenceid(id), id, cal)));
    }
  }
  std::vector<SchRecord> records;
  Numbering numbers(stamp);
  const std::set<LocalTime> none;
  for (icalcomponent* e = icalcomponent_get_first_component(cal, ICAL_VEVENT_COMPONENT);
       e != nullptr; e = icalcomponent_get_next_component(cal, ICAL_VEVENT_COMPONENT)) {
    const char* uid = icalcomponent_get_uid(e);
    const bool isOverride =
        icalcomponent_get_first_property(e, ICAL_RECURRENCEID_PROPERTY) != nullptr;
    const auto found = uid != nullptr && !isOverride ? replaced.find(uid) : replaced.end();
    AddEvent(e, cal, found != replaced.end() ? found->second : none, today, numbers, records);
  }
  return records;
}

}  // namespace sched
