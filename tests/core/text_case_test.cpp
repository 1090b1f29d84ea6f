#include "core/text_case.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::Unescaped;

TEST(TextCase, OnlyAsciiLettersFold) {
  // 0xC4 and 0xE4 are a capital and a small letter of the Western code page: left alone.
  EXPECT_EQ(ToLowerAscii("HolidayUS.INI @[`{"), "holidayus.ini @[`{");
  EXPECT_EQ(ToLowerAscii("\xC4Z\xE4"), "\xC4z\xE4");
  EXPECT_EQ(ToUpperAscii("schAlarm @[`{"), "SCHALARM @[`{");
  EXPECT_EQ(ToUpperAscii("\xE4z\xC4"), "\xE4Z\xC4");
  EXPECT_TRUE(EqualsIgnoringCase("SCHALARM", "schAlarm"));
  EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
  EXPECT_FALSE(EqualsIgnoringCase("@", "`"));  // one apart from 'A' and 'a', but no letters
  EXPECT_FALSE(EqualsIgnoringCase("abc", "abcd"));
}

TEST(TextCase, LessIgnoringCaseOrdersAsAFileList) {
  for (const CaseRow& row : ReadCases("core/case-order.txt", 2, 8)) {
    const std::string a = Unescaped(row[0]), b = Unescaped(row[1]);
    EXPECT_TRUE(LessIgnoringCase(a, b)) << row.where;
    EXPECT_FALSE(LessIgnoringCase(b, a)) << row.where;
  }
  EXPECT_FALSE(LessIgnoringCase("same", "same"));
}

}  // namespace
}  // namespace sched
