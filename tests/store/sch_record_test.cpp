#include "store/sch_record.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
#include "store/date_text.h"
#include "store/stamp.h"

namespace sched {
namespace {

TEST(AlarmDateCode, RingsOnTheDayBeforeWhenTheLeadCrossesMidnight) {
  struct Case {
    int year, month, day, hour, minute, lead;
    std::int32_t code;
    int ringMinute;
  };
  const Case cases[] = {
      {1998, 7, 9, 9, 30, 15, 19980709, 555},   // same day
      {1998, 7, 9, 0, 10, 30, 19980708, 1420},  // 0:10 less 30 min: 23:40 the day before
      {2000, 1, 1, 0, 10, 30, 19991231, 1420},  // across a year's end
      {2000, 3, 1, 0, 0, 1, 20000229, 1439},    // into a leap day
      {2099, 12, 31, 23, 59, 0, 20991231, 1439},
      {1998, 7, 9, 0, 30, 30, 19980709, 0},    // exactly midnight stays on the day
      {1998, 7, 9, 2, 0, 999, 19980708, 561},  // the longest lead
  };
  for (const Case& c : cases) {
    const AlarmMoment m = AlarmDateCode(c.year, c.month, c.day, c.hour, c.minute, c.lead);
    EXPECT_EQ(m.dateCode, c.code) << c.year << "/" << c.month << "/" << c.day;
    EXPECT_EQ(m.minute, c.ringMinute) << c.year << "/" << c.month << "/" << c.day;
  }
  // A lead of more than a day and a day only steps back one day.
  EXPECT_EQ(AlarmDateCode(1998, 7, 9, 0, 0, 3000).dateCode, 19980708);
  EXPECT_LT(AlarmDateCode(1998, 7, 9, 0, 0, 3000).minute, 0);
}

TEST(Stamp, PacksTheClockWithTheTopBits) {
  const FakeClock clock({1998, 7, 9, 13, 45, 59});
  const auto stamp = static_cast<std::uint32_t>(MakeStamp(clock));
  EXPECT_EQ(stamp >> 30, 3u);
  EXPECT_EQ((stamp >> 29) & 1, 0u);
  EXPECT_EQ((stamp >> 25) & 0xF, 8u);  // 1998 mod 10
  EXPECT_EQ((stamp >> 21) & 0xF, 7u);
  EXPECT_EQ((stamp >> 16) & 0x1F, 9u);
  EXPECT_EQ((stamp >> 11) & 0x1F, 13u);
  EXPECT_EQ((stamp >> 5) & 0x3F, 45u);
  EXPECT_EQ(stamp & 0x1F, 29u);  // seconds halved, rounded down
  EXPECT_LT(MakeStamp(clock), 0);
}

TEST(Stamp, LinkAndTopBits) {
  const std::int32_t fresh = static_cast<std::int32_t>(0xC1234567u);
  EXPECT_EQ(IsLinkDone(fresh), 0);
  const std::int32_t linked = ClearLinkBit(fresh);
  EXPECT_EQ(static_cast<std::uint32_t>(linked), 0x81234567u);
  EXPECT_EQ(IsLinkDone(linked), -1);
  EXPECT_EQ(static_cast<std::uint32_t>(SetTopBit(0x01234567)), 0x81234567u);
}

TEST(TextForms, LineEndsAndTabs) {
  struct Case {
    const char* in;
    const char* crlf;
  };
  const Case cases[] = {
      {"", ""},
      {"a\nb", "a\r\nb"},
      {"\nstart", "\r\nstart"},
      {"a\rb", "a\r\nb"},
      {"a\r\nb", "a\r\nb"},
      {"end\r", "end\r\n"},
      {"two\n\nlines", "two\r\n\r\nlines"},
      {"mixed\r\n\n\r", "mixed\r\n\r\n\r\n"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(LfToCrLf(c.in), c.crlf) << c.in;
    EXPECT_EQ(LfToCrLf(StripCR(c.crlf)), c.crlf) << "memo round trip of " << c.in;
  }
  EXPECT_EQ(StripCR("a\r\nb\r"), "a\nb");
  EXPECT_EQ(TabToBlank("a\tb\t\tc"), "a b  c");
}

TEST(TextForms, WeekdayNamesAndDateWithWeekday) {
  const char* names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  for (int w = 0; w < 7; ++w) EXPECT_EQ(WeekdayName(w), names[w]);
  const FakeDateFormatter formatter;
  EXPECT_EQ(FormatDateWeekday(formatter, "1998", "7", "1", 3), "1998/07/01(Wed)");
}

}  // namespace
}  // namespace sched
