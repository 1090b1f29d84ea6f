#include "core/text_case.h"

#include <gtest/gtest.h>

#include <string>

namespace sched {
namespace {

TEST(TextCase, OnlyAsciiLettersFold) {
  // 0xC4 and 0xE4 are a capital and a small letter of the Western code page: left alone.
  EXPECT_EQ(ToLowerAscii("HolidayUS.INI @[`{"), "holidayus.ini @[`{");
  EXPECT_EQ(ToLowerAscii("\xC4Z\xE4"), "\xC4z\xE4");
  EXPECT_TRUE(EqualsIgnoringCase("SCHALARM", "schAlarm"));
  EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));  // one apart from 'A' and 'a', but no letters
  EXPECT_FALSE(EqualsIgnoringCase("abc", "abcd"));
}

TEST(TextCase, LessIgnoringCaseOrdersAsAFileList) {
  struct Case {
    const char* a;
    const char* b;
  };
  // Each pair in order: `a` before `b`, never the other way round.
  const Case cases[] = {
      {"apple", "Banana"},
      {"APPLE", "banana"},
      {"Zeta", "zetas"},
      {"HOLIDAYde", "holidayus"},
      {"A", "a"},
      {"Ab", "aB"},
      {"z", "\xE4"},  // bytes above 127 come after the
                      // letters
      {"", "a"},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(LessIgnoringCase(c.a, c.b)) << c.a << " < " << c.b;
    EXPECT_FALSE(LessIgnoringCase(c.b, c.a)) << c.b << " < " << c.a;
  }
  EXPECT_FALSE(LessIgnoringCase("same", "same"));
}

}  // namespace
}  // namespace sched
