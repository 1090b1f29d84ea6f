#include "holidays/holiday_rules.h"

#include <gtest/gtest.h>

#include "holiday_test_support.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::NamedDays;
using testing::ReadCases;
using testing::Unescaped;

// Every case of tests/data/holidays/rules.txt: the rules name the expected days of the year.
TEST(RuleKinds, NameTheExpectedDays) {
  for (const CaseRow& row : ReadCases("holidays/rules.txt", 4, 50)) {
    EXPECT_EQ(NamedDays(Unescaped(row[2]), row.Int(1)), row[3]) << row.where << ": " << row[0];
  }
}

}  // namespace
}  // namespace sched
