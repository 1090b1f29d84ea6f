#include "holidays/country_calendar.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_dir.h"

namespace sched {
namespace {

class CountryCalendarTest : public ::testing::Test {
 protected:
  // The port's answer and name for a date, "-" when there is none.
  std::string NameOn(CalendarHandle handle, int y, int m, int d) {
    std::string name = "-";
    const int result = calendar.SorCalender_GetHolidayName(handle, y, m, d, name);
    EXPECT_EQ(result == 0, name != "-") << y << "/" << m << "/" << d;
    return name;
  }

  TempDir dir;
  CountryCalendar calendar;
};

TEST_F(CountryCalendarTest, MissingOrInvalidFilesFailToOpen) {
  CalendarHandle handle = 77;
  EXPECT_NE(calendar.SorCalender_InitFunction((dir.Path() / "gone.ini").string(), handle), 0);
  EXPECT_NE(calendar.SorCalender_InitFunction(dir.Write("bad.ini", "T\nfixed 13-01 = A"), handle),
            0);
  EXPECT_EQ(handle, 77u);
}

TEST_F(CountryCalendarTest, SeveralHandlesStayApartUntilEnded) {
  CalendarHandle a = 0, b = 0;
  ASSERT_EQ(calendar.SorCalender_InitFunction(dir.Write("a.ini", "A\nfixed 07-04 = Four"), a), 0);
  ASSERT_EQ(calendar.SorCalender_InitFunction(dir.Write("b.ini", "B\nfixed 07-14 = Bastille"), b),
            0);
  EXPECT_NE(a, 0u);
  EXPECT_NE(b, 0u);
  EXPECT_EQ(NameOn(a, 2024, 7, 4), "Four");
  EXPECT_EQ(NameOn(a, 2024, 7, 14), "-");
  EXPECT_EQ(NameOn(b, 2024, 7, 14), "Bastille");

  calendar.SorCalender_EndFunction(a);
  EXPECT_EQ(NameOn(a, 2024, 7, 4), "-");
  EXPECT_EQ(NameOn(b, 2024, 7, 14), "Bastille");
  EXPECT_EQ(NameOn(0, 2024, 7, 14), "-");

  CalendarHandle c = 0;
  ASSERT_EQ(calendar.SorCalender_InitFunction((dir.Path() / "a.ini").string(), c), 0);
  EXPECT_NE(c, b);
  EXPECT_EQ(NameOn(c, 2024, 7, 4), "Four");
}

TEST_F(CountryCalendarTest, OnlyRealDatesOf1901To2099HaveNames) {
  CalendarHandle h = 0;
  ASSERT_EQ(calendar.SorCalender_InitFunction(
                dir.Write("c.ini", "C\nfixed 01-01 = New\nfixed 12-31 = Eve\nlast sat feb = L"), h),
            0);
  EXPECT_EQ(NameOn(h, 1901, 1, 1), "New");
  EXPECT_EQ(NameOn(h, 2099, 12, 31), "Eve");
  EXPECT_EQ(NameOn(h, 1900, 12, 31), "-");
  EXPECT_EQ(NameOn(h, 2100, 1, 1), "-");
  EXPECT_EQ(NameOn(h, 2023, 2, 25), "L");
  for (const auto& [m, d] : {std::pair{0, 1}, {13, 1}, {1, 0}, {1, 32}, {2, 30}, {-1, -1}}) {
    EXPECT_EQ(NameOn(h, 2023, m, d), "-") << m << "/" << d;
  }
}

TEST_F(CountryCalendarTest, NamesComeAsUtf8FromThe8BitFile) {
  CalendarHandle h = 0;
  const std::string longest(99, '\xE9');  // 99 bytes in the file, 198 in UTF-8
  ASSERT_EQ(
      calendar.SorCalender_InitFunction(
          dir.Write("fr.ini", "France\r\nfixed 12-25 = No\xEBl\r\nfixed 01-02 = " + longest), h),
      0);
  EXPECT_EQ(NameOn(h, 2024, 12, 25), "No\xC3\xABl");
  std::string expected;
  for (int i = 0; i < 99; ++i) expected += "\xC3\xA9";
  EXPECT_EQ(NameOn(h, 2024, 1, 2), expected);
}

}  // namespace
}  // namespace sched
