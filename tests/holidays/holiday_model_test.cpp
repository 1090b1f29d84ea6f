#include "holidays/holiday_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_holiday_calendar.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

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
  for (const CaseRow& row : ReadCases("holidays/day-classes.txt", 6, 10)) {
    ASSERT_TRUE(row[3] == "none" || row[3] == "holiday" || row[3] == "workday") << row.where;
    const CivilDate d = row.Date(1);
    const MonthMasks mark = Mask(d.month, d.day), none{};
    const DayClass result =
        ClassifyDate(named, sundaySaturday, row[3] == "holiday" ? mark : none,
                     row[3] == "workday" ? mark : none, d.year, d.month, d.day, row.Int(2));
    EXPECT_EQ(result.holiday, row.YesNo(4)) << row.where << " " << row[0];
    EXPECT_EQ(result.name, row[5]) << row.where << " " << row[0];
  }
}

TEST(HolidayModel, WithoutACountryFileOnlyTheWeekAndTheMarksCount) {
  FakeHolidayCalendar calendar = TwoHolidays();
  const NamedHolidays closed{&calendar, 7, 0};
  std::string name = "unchanged";
  EXPECT_EQ(closed.GetHolidayName(2026, 1, 1, name), 0);
  EXPECT_EQ(name, "unchanged");
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
