#include "link/ics_export.h"

#include <libical/ical.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "appointments/repeat_rule.h"
#include "core/calendar.h"
#include "link/ics_rules.h"

namespace sched {
namespace {

constexpr std::uint32_t kIdentityBits = 0x3FFFFFFF;

bool IsSeries(const SchRecord& r) {
  return r.RepeatKind != 0;
}

CivilDate DateOf(const SchRecord& r) {
  return {r.Year, r.Month, r.Day};
}

void AddTexts(icalcomponent* event, const SchRecord& r) {
  icalcomponent_add_property(event, icalproperty_new_summary(r.Title.c_str()));
  if (!r.Place.empty()) {
    icalcomponent_add_property(event, icalproperty_new_location(r.Place.c_str()));
  }
  if (!r.Memo.empty()) {
    std::string memo;
    for (char c : r.Memo) {
      if (c != '\r') memo += c;
    }
    icalcomponent_add_property(event, icalproperty_new_description(memo.c_str()));
  }
  if (r.Private != 0) icalcomponent_add_property(event, icalproperty_new_class(ICAL_CLASS_PRIVATE));
}

void AddAlarm(icalcomponent* event, const std::vector<const SchRecord*>& rows) {
  const auto alarmed =
      std::find_if(rows.begin(), rows.end(), [](const SchRecord* r) { return r->AlarmOn != 0; });
  if (alarmed == rows.end()) return;
  icalcomponent* alarm = icalcomponent_new_valarm();
  icalcomponent_add_property(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
  icalcomponent_add_property(alarm, icalproperty_new_description((*alarmed)->Title.c_str()));
  icaltriggertype trigger{};
  trigger.time = icaltime_null_time();
  trigger.duration = icaldurationtype_from_int(-60 * (*alarmed)->AlarmLead);
  icalcomponent_add_property(alarm, icalproperty_new_trigger(trigger));
  icalcomponent_add_component(event, alarm);
}

// One event of the rows of a series or an item, in date order.
icalcomponent* BuildEvent(const std::vector<const SchRecord*>& rows, const icaltimetype& stamp) {
  const SchRecord& r = *rows.front();
  icalcomponent* event = icalcomponent_new_vevent();
  icalcomponent_add_property(event, icalproperty_new_uid(EventUid(r).c_str()));
  icalcomponent_add_property(event, icalproperty_new_dtstamp(stamp));
  AddTexts(event, r);
  std::vector<CivilDate> dates;
  for (const SchRecord* row : rows) {
    if (dates.empty() || dates.back() != DateOf(*row)) dates.push_back(DateOf(*row));
  }
  const bool allDay = r.StartTime < 0 || r.RepeatKind == static_cast<std::int16_t>(kOverDaysWord);
  const auto at = [&](const CivilDate& d) { return allDay ? DayOf(d) : TimeOf(d, r.StartTime); };
  icalcomponent_add_property(event, icalproperty_new_dtstart(at(dates.front())));
  if (r.RepeatKind == static_cast<std::int16_t>(kOverDaysWord)) {
    icalcomponent_add_property(event, icalproperty_new_dtend(DayOf(AddDays(dates.back(), 1))));
    AddAlarm(event, rows);
    return event;
  }
  icalcomponent_add_property(
      event,
      icalproperty_new_dtend(allDay ? DayOf(AddDays(dates.front(), 1))
                                    : TimeOf(dates.front(), std::max(r.EndTime, r.StartTime))));
  if (IsSeries(r) && dates.size() > 1) {
    const std::optional<std::string> rule =
        RuleOf(static_cast<std::uint16_t>(r.RepeatKind), static_cast<int>(dates.size()));
    if (rule && RuleGives(*rule, dates)) {
      icalcomponent_add_property(
          event, icalproperty_new_rrule(icalrecurrencetype_from_string(rule->c_str())));
    } else {
      for (std::size_t i = 1; i < dates.size(); ++i) {
        icaldatetimeperiodtype date{};
        date.time = at(dates[i]);
        date.period = icalperiodtype_null_period();
        icalcomponent_add_property(event, icalproperty_new_rdate(date));
      }
    }
  }
  AddAlarm(event, rows);
  return event;
}

Component NewCalendar() {
  Component calendar(icalcomponent_new_vcalendar());
  icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
  icalcomponent_add_property(calendar.get(),
                             icalproperty_new_prodid("-//Scheduler//Data Link//EN"));
  return calendar;
}

std::optional<Component> ReadCalendar(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) return NewCalendar();
  Component calendar(icalparser_parse_string(std::string(text).c_str()));
  if (!calendar || icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT) {
    return std::nullopt;
  }
  return calendar;
}

}  // namespace

std::string EventUid(const SchRecord& r) {
  const bool series = IsSeries(r);
  const std::uint32_t stamp = static_cast<std::uint32_t>(series ? r.ParentStamp : r.Stamp);
  return std::string(series ? "scheduler-series-" : "scheduler-item-") +
         std::to_string(series ? r.ParentSubNo : r.SubNo) + "-" +
         std::to_string(stamp & kIdentityBits);
}

std::optional<std::string> MergeIntoCalendar(const std::vector<SchRecord>& records,
                                             std::string_view existing, const DateTime& stampUtc) {
  icalerror_set_errors_are_fatal(0);
  std::optional<Component> calendar = ReadCalendar(existing);
  if (!calendar) return std::nullopt;
  std::map<std::string, std::vector<const SchRecord*>> events;
  std::vector<std::string> order;
  for (const SchRecord& r : records) {
    auto [at, added] = events.try_emplace(EventUid(r));
    if (added) order.push_back(at->first);
    at->second.push_back(&r);
  }
  std::vector<icalcomponent*> replaced;
  for (icalcomponent* c = icalcomponent_get_first_component(calendar->get(), ICAL_VEVENT_COMPONENT);
       c != nullptr; c = icalcomponent_get_next_component(calendar->get(), ICAL_VEVENT_COMPONENT)) {
    const char* uid = icalcomponent_get_uid(c);
    if (uid != nullptr && events.count(uid) != 0) replaced.push_back(c);
  }
  for (icalcomponent* c : replaced) {
    icalcomponent_remove_component(calendar->get(), c);
    icalcomponent_free(c);
  }
  icaltimetype stamp =
      TimeOf({stampUtc.year, stampUtc.month, stampUtc.day}, stampUtc.hour * 60 + stampUtc.minute);
  stamp.second = stampUtc.second;
  stamp = icaltime_set_timezone(&stamp, icaltimezone_get_utc_timezone());
  for (const std::string& uid : order) {
    std::vector<const SchRecord*>& rows = events[uid];
    std::stable_sort(rows.begin(), rows.end(), [](const SchRecord* a, const SchRecord* b) {
      return DateCode(a->Year, a->Month, a->Day) < DateCode(b->Year, b->Month, b->Day);
    });
    icalcomponent_add_component(calendar->get(), BuildEvent(rows, stamp));
  }
  char* text = icalcomponent_as_ical_string_r(calendar->get());
  std::string out = text != nullptr ? text : "";
  std::free(text);
  return out;
}

}  // namespace sched
