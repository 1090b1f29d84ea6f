#include "cli/holidays_command.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "holiday_test_support.h"
#include "tests/support/run_command.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

using testing::ShippedFile;

constexpr const char* kUsageLine = "usage: scltool holidays COUNTRYFILE FROMYEAR [TOYEAR]\n";

CommandRun RunWith(const std::vector<std::string>& args) {
  return RunIn(RunHolidaysCommand, args);
}

TEST(HolidaysCommand, ListsTheYearsInDateOrder) {
  TempDir dir;
  const std::string path =
      dir.Write("t.ini", "T\r\nfixed 07-04 = Four\r\nfixed 01-09 = No\xEBl\r\n");
  const CommandRun run = RunWith({path, "2020", "2021"});
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.out,
            "2020/01/09\tNo\xC3\xABl\n2020/07/04\tFour\n2021/01/09\tNo\xC3\xABl\n"
            "2021/07/04\tFour\n");
  EXPECT_EQ(run.err, "");
}

// The whole output for a year of a shipped file, as tests/data/holidays/holidays-uk-2022.txt
// holds it.
TEST(HolidaysCommand, OneYearOfAShippedFile) {
  const CommandRun run = RunWith({ShippedFile("holidayUK.ini"), "2022"});
  EXPECT_EQ(run.result, 0);
  const std::vector<std::uint8_t> expected =
      ReadBytes(SCHEDULER_TEST_DATA_DIR "/holidays/holidays-uk-2022.txt");
  EXPECT_EQ(run.out, std::string(expected.begin(), expected.end()));
}

TEST(HolidaysCommand, BadUsageShowsTheUsageLine) {
  const std::vector<std::vector<std::string>> cases = {{},
                                                       {"f.ini"},
                                                       {"f.ini", "1900"},
                                                       {"f.ini", "2100"},
                                                       {"f.ini", "2000", "2100"},
                                                       {"f.ini", "2001", "2000"},
                                                       {"f.ini", "20x0"},
                                                       {"f.ini", "-2000"},
                                                       {"f.ini", "+2000"},
                                                       {"f.ini", ""},
                                                       {"f.ini", "2000", "2001", "2002"}};
  for (const auto& args : cases) {
    const CommandRun run = RunWith(args);
    EXPECT_EQ(run.result, 2) << args.size();
    EXPECT_NE(run.err.find(kUsageLine), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
  }
}

TEST(HolidaysCommand, FilesThatDoNotLoadAreReported) {
  TempDir dir;
  const std::string missing = (dir.Path() / "gone.ini").string();
  CommandRun run = RunWith({missing, "2000"});
  EXPECT_EQ(run.result, 1);
  EXPECT_EQ(run.err, "scltool holidays: cannot load " + missing + ": no such file\n");

  const std::string bad = dir.Write("bad.ini", "T\nfixed 01-01 = A\nfixed 13-01 = B\n");
  run = RunWith({bad, "2000"});
  EXPECT_EQ(run.result, 1);
  EXPECT_EQ(run.err, "scltool holidays: cannot load " + bad + ": line 3: month 13 out of range\n");
  EXPECT_EQ(run.out, "");
}

}  // namespace
}  // namespace sched
