#include "holidays/holiday_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_holiday_calendar.h"

namespace sched {
namespace {

// Names two dates under handle 7: Thursday 2026/1/1 and Saturday 2026/10/31.
FakeHolidayCalendar TwoHolidays() {
  return FakeHolidayCalendar({{20260101, "New Year's Day"}, {20261031, "Halloween"}}, 7);
}

MonthMasks Mask(int month, int day) {
  MonthMasks masks{};
  masks[static_cast<std::size_t>(month - 1)] = static_cast<std::int32_t>(1u << (day - 1));
  return masks;
}

TEST(HolidayModel, ClassifiesEveryCombinationOfWeekRuleNameAndMarks) {
  FakeHolidayCalendar calendar = TwoHolidays();
  const NamedHolidays named{&calendar, 7, -1};
  const WeekFlags sundaySaturday{1, 0, 0, 0, 0, 0, 1};
  const MonthMasks none{};
  struct Case {
    const char* what;
    int month, day, weekday;
    MonthMasks on, off;
    bool holiday;
    const char* name;
  };
  const Case cases[] = {
      {"plain Friday", 1, 2, 5, none, none, false, ""},
      {"named Thursday", 1, 1, 4, none, none, true, "New Year's Day"},
      {"named Thursday marked back to work", 1, 1, 4, Mask(1, 1), none, false, "New Year's Day"},
      {"Friday marked as holiday", 1, 2, 5, Mask(1, 2), none, true, ""},
      {"Sunday", 1, 4, 0, none, none, true, ""},
      {"Sunday marked as workday", 1, 4, 0, none, Mask(1, 4), false, ""},
      {"Sunday with a holiday mark that does not apply", 1, 4, 0, Mask(1, 4), none, true, ""},
      {"named Saturday marked as workday shows its name", 10, 31, 6, none, Mask(10, 31), false,
       "Halloween"},
      {"workday mark on a working weekday does nothing", 1, 2, 5, none, Mask(1, 2), false, ""},
      {"day 31 uses bit 30", 12, 31, 4, Mask(12, 31), none, true, ""},
  };
  for (const Case& c : cases) {
    const DayClass result =
        ClassifyDate(named, sundaySaturday, c.on, c.off, 2026, c.month, c.day, c.weekday);
    EXPECT_EQ(result.holiday, c.holiday) << c.what;
    EXPECT_EQ(result.name, c.name) << c.what;
  }
}

TEST(HolidayModel, WithoutACountryFileOnlyTheWeekAndTheMarksCount) {
  FakeHolidayCalendar calendar = TwoHolidays();
  const NamedHolidays closed{&calendar, 7, 0};
  std::string name = "unchanged";
  EXPECT_EQ(closed.GetHolidayName(2026, 1, 1, name), 0);
  EXPECT_EQ(name, "unchanged");
  const NamedHolidays open{&calendar, 7, -1};
  EXPECT_EQ(open.GetHolidayName(2026, 1, 1, name), -1);
  EXPECT_EQ(name, "New Year's Day");
  EXPECT_FALSE(ClassifyDate(closed, {1, 0, 0, 0, 0, 0, 0}, {}, {}, 2026, 1, 1, 4).holiday);
}

TEST(HolidayModel, MarksAndTheirWeekdays) {
  const WeekFlags saturday{0, 0, 0, 0, 0, 0, 1};
  EXPECT_TRUE(IsHolidayOn(2, 29, Mask(2, 29)));
  EXPECT_FALSE(IsHolidayOn(3, 29, Mask(2, 29)));
  EXPECT_TRUE(IsHolidayOff(3, 7, 6, Mask(3, 7), saturday));
  EXPECT_FALSE(IsHolidayOff(3, 7, 5, Mask(3, 7), saturday));  // not a weekly holiday
  EXPECT_FALSE(IsHolidayOn(13, 1, Mask(12, 1)));
  EXPECT_FALSE(IsHolidayOn(1, 32, Mask(1, 1)));
}

}  // namespace
}  // namespace sched
