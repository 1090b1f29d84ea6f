#include "interchange/csv_import.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "store/row_order.h"
#include "tests/support/case_file.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

using testing::ReadCases;
using testing::Unescaped;

std::string DateText(int year, int month, int day) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
  return text;
}

// The live rows in date order, in the form of the case file.
std::string Rows(const SchDatCTL& t) {
  const std::vector<int> rows = LiveRowsInDateOrder(t);
  if (rows.empty()) return "-";
  if (rows.size() > 3) return "#" + std::to_string(rows.size());
  std::string text;
  for (const int at : rows) {
    const SchDatRow& r = t.SchDatList.At(at);
    text += (text.empty() ? "" : " ; ") + std::string(t.SchDatList.Texts(r).Title) + "@" +
            DateText(r.Year, r.Month, r.Day) + " " + std::to_string(r.StartTime) + "-" +
            std::to_string(r.EndTime) + " k" +
            std::to_string(static_cast<std::int16_t>(r.RepeatKind)) + " a" +
            std::to_string(r.AlarmLead) + " p" + std::to_string(r.Private) + " to" +
            DateText(r.EndYear, r.EndMonth, r.EndDay);
  }
  return text;
}

TEST(CsvImport, RowsOfTheCaseFile) {
  for (const auto& c : ReadCases("interchange/import-rows.txt", 4, 20)) {
    FakeStore maker;
    CsvSettings csv{SplitCsvColumnNames(c[0]), c.YesNo(1)};
    const bool whole =
        ImportCsvFile({maker.store, maker.progress, maker.clock}, Unescaped(c[2]), csv);
    EXPECT_EQ(whole ? Rows(maker.doc.Tables) : "read error", c[3]) << c.where;
  }
}

TEST(CsvImport, KeepsTheShownDateAndMarksItsRowsForSave) {
  FakeStore maker;
  maker.doc.SetShownDate({2030, 7, 14});
  ASSERT_TRUE(ImportCsvFile({maker.store, maker.progress, maker.clock},
                            "t,2001/5/1,10:00,,,,1,,9:00,Hall,\"a\nb\"\r\n", {{}, false}));
  EXPECT_EQ((CivilDate{maker.doc.CurYear, maker.doc.CurMonth, maker.doc.CurDay}),
            (CivilDate{2030, 7, 14}));
  const int at = LiveRowsInDateOrder(maker.doc.Tables)[0];
  const SchDatRow& row = maker.doc.Tables.SchDatList.At(at);
  const RowTexts texts = maker.doc.Tables.SchDatList.Texts(at);
  EXPECT_EQ(texts.Memo, "a\r\nb");
  EXPECT_EQ(texts.AlarmSound, "SCHALARM");
  // Title, place and memo bytes (the memo as the file holds it, without CR), 8, and 10 for the
  // alarm.
  EXPECT_EQ(row.VarLen, 1 + 4 + 3 + 8 + 10);
}

// Rows imported within one tick of the clock stay apart: no two share SubNo and Stamp, and no
// span's group number leaves the file's 16-bit field.
TEST(CsvImport, SeventyThousandRowsKeepTheirIdentities) {
  std::string file;
  for (int i = 0; i < 70000; ++i) {
    // Spread over the calendar, so that no day's chain grows long.
    const std::string month =
        std::to_string(1901 + i % 199) + "/" + std::to_string(1 + i / 199 % 12);
    const int day = 1 + i / 2388 % 27;
    const std::string date = month + "/" + std::to_string(day);
    file += i % 1000 == 999
                ? "s," + date + ",0:00," + month + "/" + std::to_string(day + 1) + ",0:00\r\n"
                : "t," + date + ",10:00\r\n";
  }
  FakeStore maker;
  ASSERT_TRUE(ImportCsvFile({maker.store, maker.progress, maker.clock}, file, {{}, false}));
  const SchDatCTL& t = maker.doc.Tables;
  std::set<std::pair<std::int32_t, std::int32_t>> seen;
  for (int row = 0; row < t.SchDatList.Rows(); ++row) {
    const SchDatRow& r = t.SchDatList.At(row);
    EXPECT_TRUE(seen.insert({r.SubNo, r.Stamp}).second) << "row " << row;
    EXPECT_GT(r.SubNo, 0) << "row " << row;
    if (r.RepeatKind != 0) {
      EXPECT_GT(r.ParentSubNo, 0) << "row " << row;
    }
  }
  EXPECT_EQ(t.RowCount, 70000 + 70);
}

// A long import under a clock that moves on goes on under new stamps, each read from the clock
// and never one an earlier row holds; identities stay unique across them.
TEST(CsvImport, ALongImportFollowsTheClock) {
  std::string file;
  for (int i = 0; i < 3000; ++i) file += "t,2024/5/" + std::to_string(1 + i % 28) + ",10:00\r\n";
  FakeStore maker;
  maker.clock.SetSecondsPerReading(2);
  ASSERT_TRUE(ImportCsvFile({maker.store, maker.progress, maker.clock}, file, {{}, false}));
  const SchDatCTL& t = maker.doc.Tables;
  std::set<std::int32_t> stamps;
  std::set<std::pair<std::int32_t, std::int32_t>> seen;
  for (int row = 0; row < t.SchDatList.Rows(); ++row) {
    const SchDatRow& r = t.SchDatList.At(row);
    stamps.insert(r.Stamp);
    EXPECT_TRUE(seen.insert({r.SubNo, r.Stamp}).second) << "row " << row;
  }
  EXPECT_EQ(t.RowCount, 3000);
  // The clock is read every few hundred rows, not for every row.
  EXPECT_GE(stamps.size(), 4U);
  EXPECT_LE(maker.clock.Readings(), 3000 / 100);
}

// A read that fails far into a file, after rows that were read ahead of the import, fails the
// import with every row before it in the store, and the bar shows where the read began.
TEST(CsvImport, AFailingReadKeepsTheRowsBeforeIt) {
  std::string file;
  for (int i = 0; i < 5000; ++i)
    file += "\"t\",\"2024/5/" + std::to_string(1 + i % 28) + "\",\"10:00\"\r\n";
  const std::size_t failingAt = file.size();
  file += "t,2024/5/1,10:00";  // no line end at the end of the file
  FakeStore maker;
  EXPECT_FALSE(ImportCsvFile({maker.store, maker.progress, maker.clock}, file, {{}, false}));
  EXPECT_EQ(maker.doc.Tables.RowCount, 5000);
  const std::vector<int>& shown = maker.progress.values;
  ASSERT_GE(shown.size(), 2U);
  EXPECT_EQ(shown[shown.size() - 2], static_cast<int>(failingAt * 100 / file.size()));
  EXPECT_EQ(shown.back(), 100);
}

// Files far from a calendar end in the reader's reactions, at once and without records.
TEST(CsvImport, HugeLinesAndColumnsEndQuickly) {
  const struct {
    const char* name;
    std::string file;
    bool whole;
  } cases[] = {
      {"10 MB on one line", std::string(10'000'000, 'x') + "\r\n", true},
      {"10 MB in one open quote", "\"" + std::string(10'000'000, 'x'), true},
      {"a million columns", std::string(1'000'000, ',') + "x\r\n", true},
      {"a million columns without a line end", std::string(1'000'000, ',') + "xy", false},
  };
  for (const auto& c : cases) {
    FakeStore maker;
    EXPECT_EQ(ImportCsvFile({maker.store, maker.progress, maker.clock}, c.file, {{}, false}),
              c.whole)
        << c.name;
    EXPECT_EQ(maker.doc.Tables.RowCount, 0) << c.name;
  }
}

TEST(CsvBoolean, TrueOnlyForTheTextsAndNumbersOfOne) {
  const std::pair<const char*, int> cases[] = {
      {"1", 1}, {"1abc", 1}, {" 1.0", 1}, {"True", 1}, {"TRUE", 1}, {"真", 1},   {"true", 0},
      {"", 0},  {"2", 0},    {"-1", 0},   {"0", 0},    {"yes", 0},  {"真真", 0}, {".", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(CsvBoolean(text), value) << text;
}

}  // namespace
}  // namespace sched
