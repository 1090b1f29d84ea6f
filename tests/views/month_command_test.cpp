#include "cli/month_command.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "tests/support/run_command.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

CommandRun RunMonth(const std::vector<std::string>& args) {
  return RunIn(RunMonthCommand, args);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

constexpr const char* kUsage = "usage: scltool month FILE.scl YYYY MM [COUNTRYFILE]\n";

TEST(MonthCommand, Usage) {
  for (const auto& args :
       std::vector<std::vector<std::string>>{{},
                                             {"a.scl"},
                                             {"a.scl", "2010"},
                                             {"a.scl", "1900", "1"},
                                             {"a.scl", "2100", "1"},
                                             {"a.scl", "2010", "13"},
                                             {"a.scl", "2010", "0"},
                                             {"a.scl", "20x0", "1"},
                                             {"a.scl", "2010", "1", "c.ini", "more"}}) {
    const CommandRun run = RunMonth(args);
    EXPECT_EQ(run.result, 2);
    EXPECT_EQ(run.err, kUsage);
  }
}

TEST(MonthCommand, UnreadableFile) {
  TestStore s;
  // The store reports on the standard error stream, as the tool's loader does.
  std::ostringstream cerr;
  std::streambuf* const saved = std::cerr.rdbuf(cerr.rdbuf());
  const CommandRun run = RunMonth({s.dir.File("missing.scl"), "2010", "6"});
  std::cerr.rdbuf(saved);
  EXPECT_EQ(run.result, 1);
  EXPECT_NE(cerr.str().find("Read error!"), std::string::npos);
  EXPECT_TRUE(run.out.empty());
}

TEST(MonthCommand, CellsOfAMonthWithItemsMasksAndNames) {
  TestStore s;
  s.store.InsertRecord(MakeItem(2010, 12, 1, 540, 600, "Meet"));
  s.store.InsertRecord(MakeItem(2010, 12, 1, -1, -1, "Fair"));
  s.doc.Tables.AncYY.At(0).HolidayOn[11] = Bit(2);  // Thursday 2 December
  s.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  const std::string file = s.dir.File("month.scl");
  s.SaveTo("month.scl");

  const CommandRun run =
      RunMonth({file, "2010", "12", std::string(SCHEDULER_DATA_DIR) + "/pcapps/holidayUK.ini"});
  ASSERT_EQ(run.result, 0) << run.err;
  const std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 44u);
  // 1 December 2010 is a Wednesday: cells 0 to 2 are the end of November.
  EXPECT_EQ(lines[0], "0\t28\tred\tgrey\tenabled\t");
  EXPECT_EQ(lines[3], "3\t1\tblack\tselection\tenabled\t");
  EXPECT_EQ(lines[4], "    Allday Fair");
  EXPECT_EQ(lines[5], "    9:00am Meet");
  EXPECT_EQ(lines[6], "4\t2\tred\twindow\tenabled\t");
  EXPECT_EQ(lines[7], "5\t3\tblack\twindow\tenabled\t");
  EXPECT_EQ(lines[29], "27\t25\tred\twindow\tenabled\tChristmas Day");
  EXPECT_EQ(lines[43], "41\t8\tred\tgrey\tenabled\t");
}

TEST(MonthCommand, LastMonthHasBlankDisabledCells) {
  TestStore s;
  const std::string file = s.dir.File("empty.scl");
  s.SaveTo("empty.scl");
  const CommandRun run = RunMonth({file, "2099", "12"});
  ASSERT_EQ(run.result, 0) << run.err;
  const std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 42u);
  EXPECT_EQ(lines[32], "32\t31\tblack\twindow\tenabled\t");
  EXPECT_EQ(lines[33], "33\t\tblack\tgrey\tdisabled\t");
}

TEST(MonthCommand, MissingCountryFile) {
  TestStore s;
  const std::string file = s.dir.File("x.scl");
  s.SaveTo("x.scl");
  const CommandRun run = RunMonth({file, "2010", "6", s.dir.File("nope.ini")});
  EXPECT_EQ(run.result, 1);
  EXPECT_FALSE(run.err.empty());
}

}  // namespace
}  // namespace sched
