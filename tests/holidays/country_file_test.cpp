#include "holidays/country_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_dir.h"

namespace sched {
namespace {

using namespace std::string_literals;

TEST(CountryFile, ReadsTitleCommentsLineBreaksAndCase) {
  const std::string text =
      "Deutschland (Germany)\r\n"
      "; a comment\r\n"
      "# another comment\r\n"
      "\r\n"
      "  FIXED\t07-04  =  Independence  Day  \r\n"
      "Nth 1 Monday September = Labor Day\r"
      "last SUN 5 = X\n"
      "fixed 12-25 observe next-weekday = C | C (substitute day)";
  CountryFile file;
  CountryFileError error;
  ASSERT_TRUE(ParseCountryFile(text, file, error)) << error.line << ": " << error.message;
  EXPECT_EQ(file.title, "Deutschland (Germany)");
  ASSERT_EQ(file.rules.size(), 4u);
  EXPECT_EQ(file.rules[0].name, "Independence  Day");
  EXPECT_EQ(file.rules[1].kind, RuleKind::kNthWeekday);
  EXPECT_EQ(file.rules[1].weekday, 1);
  EXPECT_EQ(file.rules[1].month, 9);
  EXPECT_EQ(file.rules[2].kind, RuleKind::kLastWeekday);
  EXPECT_EQ(file.rules[3].observance, Observance::kNextWeekday);
  EXPECT_EQ(file.rules[3].observedName, "C (substitute day)");
}

TEST(CountryFile, TitleAloneWithoutLineBreakIsValid) {
  CountryFile file;
  CountryFileError error;
  ASSERT_TRUE(ParseCountryFile("Nowhere", file, error));
  EXPECT_EQ(file.title, "Nowhere");
  EXPECT_TRUE(file.rules.empty());
}

TEST(CountryFile, NamesUpTo99BytesOfTheFileAreValid) {
  CountryFile file;
  CountryFileError error;
  EXPECT_TRUE(ParseCountryFile("T\nfixed 01-01 = " + std::string(99, '\xE9'), file, error));
  EXPECT_TRUE(ParseCountryFile("T\nfixed 01-01 observe nearest = N | " + std::string(99, 'x'), file,
                               error));
}

struct BadFile {
  std::string text;
  int line;
  std::string message;  // a part of the message
};

void PrintTo(const BadFile& c, std::ostream* os) {
  *os << ::testing::PrintToString(c.text);
}

class MalformedFile : public ::testing::TestWithParam<BadFile> {};

TEST_P(MalformedFile, IsRejectedWithItsLine) {
  const BadFile& c = GetParam();
  CountryFile file;
  CountryFileError error;
  EXPECT_FALSE(ParseCountryFile(c.text, file, error));
  EXPECT_EQ(error.line, c.line);
  EXPECT_NE(error.message.find(c.message), std::string::npos) << error.message;
  EXPECT_TRUE(file.rules.empty());
}

INSTANTIATE_TEST_SUITE_P(Whole, MalformedFile,
                         ::testing::Values(BadFile{"", 0, "empty"},
                                           BadFile{"\nfixed 01-01 = A", 1, "no title"},
                                           BadFile{"  \t\r\nfixed 01-01 = A", 1, "no title"},
                                           BadFile{"Ti\x01tle\n", 1, "control character"}));

INSTANTIATE_TEST_SUITE_P(
    Keywords, MalformedFile,
    ::testing::Values(BadFile{"T\nfixd 01-01 = A", 2, "unknown keyword 'fixd'"},
                      BadFile{"T\n\n; c\n= A", 4, "missing keyword"},
                      BadFile{"T\nfixed 01-01", 2, "missing '='"},
                      BadFile{"T\nfixed 01-01 = ", 2, "missing name"},
                      BadFile{"T\nfixed 01-01 = " + std::string(100, 'x'), 2, "longer than 99"},
                      BadFile{"T\nfixed 01-01 = A\0B"s, 2, "control character"},
                      BadFile{"T\nsubstitute sunday = S", 2, "unknown substitute mode"},
                      BadFile{"T\nsubstitute = S", 2, "missing"},
                      BadFile{"T\nbridge observe nearest = Z", 2, "unknown option 'observe'"},
                      BadFile{"T\nbridge = Z | Y", 2, "'|'"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, MalformedFile,
    ::testing::Values(BadFile{"T\nfixed 13-01 = A", 2, "month 13 out of range"},
                      BadFile{"T\nfixed 00-10 = A", 2, "month 0 out of range"},
                      BadFile{"T\nfixed 02-30 = A", 2, "day 30 out of range"},
                      BadFile{"T\nfixed 04-31 = A", 2, "day 31 out of range"},
                      BadFile{"T\nfixed 1-1x = A", 2, "bad"},
                      BadFile{"T\nfixed 001-01 = A", 2, "bad month-day"},
                      BadFile{"T\nfixed = A", 2, "missing month-day"},
                      BadFile{"T\nonce 2023-02-29 = A", 2, "day 29 out of range"},
                      BadFile{"T\nonce 23-02-01 = A", 2, "bad date"},
                      BadFile{"T\nnth 6 mon jan = A", 2, "out of range"},
                      BadFile{"T\nnth 0 mon jan = A", 2, "out of range"},
                      BadFile{"T\nnth 1 mnd jan = A", 2, "unknown weekday"},
                      BadFile{"T\nnth 1 mon = A", 2, "missing month"},
                      BadFile{"T\nlast mon 13 = A", 2, "month 13 out of range"},
                      BadFile{"T\nlast mon janu = A", 2, "unknown month"},
                      BadFile{"T\neaster 400 = A", 2, "out of range"},
                      BadFile{"T\neaster x = A", 2, "bad offset"},
                      BadFile{"T\neaster +-1 = A", 2, "bad offset"},
                      BadFile{"T\nequinox june = A", 2, "unknown equinox"},
                      BadFile{"T\nbefore wed 11-31 = A", 2, "day 31 out of range"}));

INSTANTIATE_TEST_SUITE_P(
    Options, MalformedFile,
    ::testing::Values(BadFile{"T\nfixed 01-01 soon = A", 2, "unknown option 'soon'"},
                      BadFile{"T\nfixed 01-01 from = A", 2, "missing year after 'from'"},
                      BadFile{"T\nfixed 01-01 from 20x0 = A", 2, "bad"},
                      BadFile{"T\nfixed 01-01 from 99999 = A", 2, "bad year"},
                      BadFile{"T\nfixed 01-01 until 2000-13-01 = A", 2, "month 13 out of range"},
                      BadFile{"T\nfixed 01-01 from 2000 from 2001 = A", 2, "'from' given twice"},
                      BadFile{"T\nfixed 01-01 from 2001 until 2000 = A", 2, "later than 'until'"},
                      BadFile{"T\nfixed 01-01 except 1995,,2000 = A", 2, "bad year"},
                      BadFile{"T\nfixed 01-01 observe sometimes = A", 2, "unknown observance"},
                      BadFile{"T\nfixed 01-01 = A | B", 2, "needs 'observe'"},
                      BadFile{"T\nfixed 01-01 observe nearest = A | ", 2, "missing name"},
                      BadFile{"T\nfixed 01-01 observe nearest = A | B | C", 2, "more than one '|'"},
                      BadFile{"T\nfixed 01-01 observe nearest = A | " + std::string(100, 'x'), 2,
                              "longer than 99"}));

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
