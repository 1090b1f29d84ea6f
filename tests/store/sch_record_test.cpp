#include "store/sch_record.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
#include "store/date_text.h"
#include "store/stamp.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::Unescaped;

TEST(AlarmDateCode, RingsOnTheDayBeforeWhenTheLeadCrossesMidnight) {
  for (const CaseRow& row : ReadCases("store/alarm-moments.txt", 6, 7)) {
    const CivilDate d = row.Date(0);
    const AlarmMoment m = AlarmDateCode(d.year, d.month, d.day, row.Int(1), row.Int(2), row.Int(3));
    EXPECT_EQ(m.dateCode, row.Int(4)) << row.where;
    EXPECT_EQ(m.minute, row.Int(5)) << row.where;
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
}

TEST(Stamp, LinkAndTopBits) {
  const std::int32_t fresh = static_cast<std::int32_t>(0xC1234567u);
  EXPECT_EQ(IsLinkDone(fresh), 0);
  const std::int32_t linked = ClearLinkBit(fresh);
  EXPECT_EQ(static_cast<std::uint32_t>(linked), 0x81234567u);
  EXPECT_EQ(IsLinkDone(linked), -1);
  EXPECT_EQ(static_cast<std::uint32_t>(SetTopBit(0x01234567)), 0x81234567u);
  EXPECT_EQ(static_cast<std::uint32_t>(SetTopBits(linked)), 0xC1234567u);
}

TEST(TextForms, LineEndsAndTabs) {
  EXPECT_EQ(LfToCrLf(""), "");
  for (const CaseRow& row : ReadCases("store/line-ends.txt", 2, 7)) {
    const std::string crlf = Unescaped(row[1]);
    EXPECT_EQ(LfToCrLf(Unescaped(row[0])), crlf) << row.where;
    EXPECT_EQ(LfToCrLf(StripCR(crlf)), crlf) << "memo round trip, " << row.where;
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
