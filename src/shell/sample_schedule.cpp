#include "shell/sample_schedule.h"

#include <string>
#include <tuple>
#include <vector>

#include "core/calendar.h"
#include "store/stamp.h"

namespace sched {
namespace {

struct Item {
  std::string title;
  std::string place;
  std::string memo;
  int start = -1;  // minutes, -1 all day
  int end = -1;
  int alarmLead = -1;  // minutes before the start, -1 no alarm
  bool isPrivate = false;
};

class SampleBuilder {
 public:
  SampleBuilder(ScheduleStore& store, const CivilDate& today) : store_(store), today_(today) {}

  // One record for each date; a series when there is more than one, or when `kind` says so.
  void Add(const Item& item, const std::vector<CivilDate>& dates, std::int16_t kind) {
    SchRecord r;
    r.Title = item.title;
    r.Place = item.place;
    r.Memo = item.memo;
    r.StartTime = static_cast<std::int16_t>(item.start);
    r.EndTime = static_cast<std::int16_t>(item.end);
    r.Private = item.isPrivate ? 1 : 0;
    if (item.alarmLead >= 0) {
      r.AlarmOn = 1;
      r.AlarmSound = kDefaultAlarmSound;
      r.AlarmLead = static_cast<std::int16_t>(item.alarmLead);
    }
    r.Stamp = NextStamp();
    r.RepeatKind = kind;
    const bool series = kind != 0;
    r.ParentSubNo = series ? 1 : 0;
    r.ParentStamp = series ? r.Stamp : 0;
    const CivilDate& last = dates.back();
    SetEndDate(r, last);
    for (std::size_t i = 0; i < dates.size(); ++i) {
      if (!IsValidDate(dates[i].year, dates[i].month, dates[i].day)) break;
      SetStartDate(r, dates[i]);
      r.SubNo = static_cast<std::int16_t>(series ? i + 1 : 0);
      store_.InsertRecord(r);
    }
  }

  void AddOn(const Item& item, int daysFromToday) { Add(item, {Day(daysFromToday)}, 0); }

  CivilDate Day(int daysFromToday) const { return AddDays(today_, daysFromToday); }

  // Marks one date as a holiday (on a working weekday) or as a workday (on a weekly holiday).
  void SetDay(const CivilDate& date, bool holiday) {
    AncYYRow& year = store_.Document().Tables.AncYY.Edit(store_.FindOrAddYear(date.year));
    auto& masks = holiday ? year.HolidayOn : year.HolidayOff;
    masks[static_cast<std::size_t>(date.month - 1)] |= 1 << (date.day - 1);
  }

 private:
  // Stamps of items made one after another, two seconds apart, on the morning of today.
  std::int32_t NextStamp() {
    const int second = 2 * made_++;
    return StampOf(
        {today_.year, today_.month, today_.day, 8 + second / 3600, second / 60 % 60, second % 60});
  }

  ScheduleStore& store_;
  CivilDate today_;
  int made_ = 0;
};

std::vector<CivilDate> EveryWeek(const CivilDate& first, int count) {
  std::vector<CivilDate> dates;
  for (int i = 0; i < count; ++i) dates.push_back(AddDays(first, 7 * i));
  return dates;
}

CivilDate NextWeekday(const CivilDate& from, int weekday) {
  return FromDaySerial(WeekdayOnOrAfter(DaySerial(from), weekday));
}

}  // namespace

void BuildSampleSchedule(ScheduleStore& store, const CivilDate& today) {
  ScheduleDocument& doc = store.Document();
  doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  SampleBuilder b(store, today);

  // Weekly: Monday's team meeting, from six weeks back for three months.
  const CivilDate firstMonday = NextWeekday(b.Day(-42), 1);
  b.Add({"Team meeting", "Room 4.12", "Agenda in the shared folder.\r\nBring the weekly numbers.",
         570, 630, 10},
        EveryWeek(firstMonday, 13), static_cast<std::int16_t>(0x1000 | 1 * 4));

  // Monthly: project review on the last Friday, from two months back, six times.
  std::vector<CivilDate> reviews;
  for (int i = -2; i < 4; ++i) {
    const CivilDate month = AddMonths({today.year, today.month, 1}, i);
    reviews.push_back(LastWeekdayOfMonth(month.year, month.month, 5));
  }
  b.Add({"Project review", "Board room", "", 840, 930, 15}, reviews,
        static_cast<std::int16_t>(0x2040 | 7 * 8 | 5));

  // Yearly: two birthdays, five years each.
  for (const auto& [title, month, day] : std::vector<std::tuple<std::string, int, int>>{
           {"Anna's birthday", today.month, 12}, {"Father's birthday", today.month % 12 + 1, 3}}) {
    std::vector<CivilDate> dates;
    const int firstYear = month >= today.month ? today.year : today.year + 1;
    for (int y = firstYear; y < firstYear + 5; ++y) dates.push_back({y, month, day});
    b.Add({title, "", "", -1, -1, -1}, dates,
          static_cast<std::int16_t>(0x4000 | month * 64 | day * 2));
  }

  // A trip over four days, starting in ten days.
  std::vector<CivilDate> trip;
  for (int i = 10; i < 14; ++i) trip.push_back(b.Day(i));
  b.Add({"Trip to Lisbon", "Lisbon", "Flight TP 1234 at 7:05.\r\nHotel Avenida, booking 55812.", -1,
         -1, -1},
        trip, kMultiDayKind);

  // Single items around today.
  b.AddOn({"Dentist", "Dr. M\u00FCller, Hauptstra\u00DFe 8", "", 480, 510, 30}, 0);
  b.AddOn({"Lunch with Carla", "Caf\u00E9 Central", "", 750, 840, -1}, 0);
  b.AddOn({"Call with supplier", "", "Ask about the delayed order #4471.", 960, 990, 5}, 0);
  b.AddOn({"Quarterly budget due", "", "", -1, -1, -1}, 2);
  b.AddOn({"Doctor's appointment", "Health centre", "", 615, 645, 60, true}, 4);
  b.AddOn({"Concert", "City Hall", "Tickets at the box office.", 1170, 1320, 60}, 6);
  b.AddOn({"Car service", "Garage Lopes", "", 510, 600, -1}, -3);
  b.AddOn({"Interview: new designer", "Room 2.01", "CV in the mail of last week.", 660, 720, 15},
          -8);
  b.AddOn({"Company offsite", "", "", -1, -1, -1}, 21);
  b.AddOn({"Renew passport", "", "", -1, -1, -1}, 30);

  // A bridge day off and a Saturday worked.
  b.SetDay(NextWeekday(b.Day(15), 5), true);
  b.SetDay(NextWeekday(b.Day(24), 6), false);
  doc.Dirty = true;
}

}  // namespace sched
