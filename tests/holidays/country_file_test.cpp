#include "holidays/country_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/case_file.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::Unescaped;

// How rules may be written is in tests/data/holidays/rules.txt; the title is the first line.
TEST(CountryFile, TheTitleIsTheFirstLineWhateverItsLineBreak) {
  CountryFile file;
  CountryFileError error;
  for (const char* text : {"Deutschland (Germany)\r\n; c", "Deutschland (Germany)\rfixed 01-01 = A",
                           "Deutschland (Germany)\n", "Deutschland (Germany)"}) {
    ASSERT_TRUE(ParseCountryFile(text, file, error)) << error.line << ": " << error.message;
    EXPECT_EQ(file.title, "Deutschland (Germany)");
  }
  EXPECT_TRUE(file.rules.empty());
}

TEST(CountryFile, NamesUpTo99BytesOfTheFileAreValid) {
  CountryFile file;
  CountryFileError error;
  EXPECT_TRUE(ParseCountryFile("T\nfixed 01-01 observe nearest = N | " + std::string(99, 'x'), file,
                               error));
}

// Every file of tests/data/holidays/malformed-country-files.txt is rejected, naming its line.
TEST(CountryFile, MalformedFilesAreRejectedWithTheirLine) {
  for (const CaseRow& row : ReadCases("holidays/malformed-country-files.txt", 3, 40)) {
    CountryFile file;
    CountryFileError error;
    EXPECT_FALSE(ParseCountryFile(Unescaped(row[1]), file, error)) << row.where;
    EXPECT_EQ(error.line, row.Int(0)) << row.where;
    EXPECT_NE(error.message.find(row[2]), std::string::npos) << row.where << ": " << error.message;
    EXPECT_TRUE(file.rules.empty()) << row.where;
  }
}

TEST(CountryFile, LoadReportsMissingAndOversizedFiles) {
  TempDir dir;
  CountryFile file;
  CountryFileError error;
  EXPECT_FALSE(LoadCountryFile((dir.Path() / "none.ini").string(), file, error));
  EXPECT_FALSE(LoadCountryFile(dir.Path().string(), file, error));
  const std::string big = "Big\n" + std::string(kMaxCountryFileBytes, ';');
  EXPECT_FALSE(LoadCountryFile(dir.Write("big.ini", big), file, error));
  EXPECT_NE(error.message.find("larger"), std::string::npos);
  EXPECT_TRUE(LoadCountryFile(dir.Write("ok.ini", "Ok\r\nfixed 01-01 = A\r\n"), file, error));
  EXPECT_EQ(file.rules.size(), 1u);
}

}  // namespace
}  // namespace sched
