// Writes small well-formed schedule files through the store, as starting points for the
// loader's fuzz target: scl_seed_maker <folder>.

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "store/schedule_store.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

struct Maker : FakeStore {
  std::int32_t nextStamp = static_cast<std::int32_t>(0xC2A40000u);

  SchRecord Item(CivilDate date, int start, int end, const std::string& title) {
    SchRecord r;
    SetStartDate(r, date);
    r.EndDay = r.Day;
    r.EndMonth = r.Month;
    r.EndYear = r.Year;
    r.StartTime = static_cast<std::int16_t>(start);
    r.EndTime = static_cast<std::int16_t>(end);
    r.Title = title;
    r.Stamp = nextStamp++;
    return r;
  }

  void Plain(CivilDate date, int start, int end, const std::string& title) {
    store.InsertRecord(Item(date, start, end, title));
  }

  // One row for each date, SubNo rising from 1, all sharing the series' identity and its last
  // date.
  void Series(const std::vector<CivilDate>& dates, std::int16_t kind, int start, int end,
              const std::string& title) {
    SchRecord r = Item(dates.front(), start, end, title);
    SetEndDate(r, dates.back());
    r.ParentSubNo = 1;
    r.ParentStamp = r.Stamp;
    r.RepeatKind = kind;
    for (std::size_t i = 0; i < dates.size(); ++i) {
      SetStartDate(r, dates[i]);
      r.SubNo = static_cast<std::int16_t>(i + 1);
      store.InsertRecord(r);
    }
  }

  void MultiDay(CivilDate first, int days, const std::string& title) {
    std::vector<CivilDate> dates;
    for (int i = 0; i < days; ++i) dates.push_back(AddDays(first, i));
    Series(dates, kMultiDayKind, -1, -1, title);
  }

  void Weekly(CivilDate first, int count, int start, int end, const std::string& title) {
    std::vector<CivilDate> dates;
    for (int i = 0; i < count; ++i) dates.push_back(AddDays(first, 7 * i));
    const auto kind = static_cast<std::int16_t>(0x1000 | WeekdayOf(first) * 4);
    Series(dates, kind, start, end, title);
  }

  void HolidayOn(int year, int month, std::int32_t mask) {
    const int row = store.FindOrAddYear(year);
    doc.Tables.AncYY.Edit(row).HolidayOn[static_cast<std::size_t>(month - 1)] = mask;
  }

  bool Save(const std::filesystem::path& path) { return store.SaveScheduleFile(path.string()); }
};

}  // namespace
}  // namespace sched

int main(int argc, char** argv) {
  using namespace sched;
  if (argc != 2) {
    std::cerr << "usage: scl_seed_maker <folder>\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  bool ok = true;

  {
    Maker m;
    ok = m.Save(folder / "empty.scl") && ok;
  }
  {
    Maker m;
    m.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
    m.HolidayOn(2001, 1, 0x1);
    m.HolidayOn(2001, 5, 0x18);
    m.doc.Tables.AncYY.Edit(0).HolidayOff[2] = 0x40;
    ok = m.Save(folder / "holidays_only.scl") && ok;
  }
  {
    Maker m;
    m.Plain({2005, 3, 14}, 540, 600, "Dentist");
    m.Plain({2005, 3, 14}, -1, -1, "Pi day");
    m.Plain({2005, 3, 14}, 480, 495, "Call");
    m.Plain({1998, 11, 2}, 1439, 1439, "Late");
    m.Plain({1998, 1, 31}, 0, 30, "Early");
    ok = m.Save(folder / "plain_items.scl") && ok;
  }
  {
    Maker m;
    m.MultiDay({1999, 7, 30}, 4, "Trip");
    m.MultiDay({1999, 12, 30}, 5, "New year");
    m.MultiDay({1999, 7, 10}, 2, "Fair");
    m.Plain({1999, 7, 31}, 600, 660, "Lunch");
    ok = m.Save(folder / "multi_day.scl") && ok;
  }
  {
    Maker m;
    m.Weekly({2010, 1, 20}, 6, 1020, 1080, "Choir");
    m.Weekly({2010, 12, 15}, 4, -1, -1, "Bins");
    m.Plain({2010, 1, 27}, 1020, 1030, "Before choir");
    ok = m.Save(folder / "weekly_series.scl") && ok;
  }
  {
    Maker m;
    SchRecord r = m.Item({2026, 11, 21}, 630, 700, "Caf\xC3\xA9 \xE2\x82\xAC 5");
    r.Place = "Main\tStreet";
    r.Memo = "first line\r\nsecond line\r\n";
    r.Private = 1;
    r.AlarmOn = 1;
    r.AlarmSound = "SCHALARM";
    r.AlarmLead = 10;
    m.store.InsertRecord(r);
    SchRecord s = m.Item({2026, 11, 22}, 0, 15, "");
    s.AlarmOn = 1;
    s.AlarmSound = "BELL";
    s.AlarmLead = 30;
    m.store.InsertRecord(s);
    ok = m.Save(folder / "private_alarm_memo.scl") && ok;
  }
  {
    Maker m;
    m.Plain({1901, 1, 1}, -1, -1, "First day");
    m.Plain({2099, 12, 31}, 1439, 1439, "Last minute");
    m.Plain({2000, 2, 29}, 720, 780, "Leap day");
    m.MultiDay({2099, 12, 30}, 2, "End");
    ok = m.Save(folder / "bounds.scl") && ok;
  }

  if (!ok) {
    std::cerr << "scl_seed_maker: a seed could not be written\n";
    return 1;
  }
  return 0;
}
