#include "store/table.h"

#include <gtest/gtest.h>

#include <random>

#include "store/sch_tables.h"

namespace sched {
namespace {

TEST(Table, AnEmptyTableHasOneRowWithAnEmptyFirstCell) {
  Table<AncMMRow> table;
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_EQ(table.Cell(0, 0), "");
  EXPECT_TRUE(table.IsEmpty());
  table.AddItem("7\t-1");
  table.Clear();
  EXPECT_TRUE(table.IsEmpty());
  EXPECT_EQ(table.Rows(), 1);
}

TEST(Table, ALineRoundTripsThroughTheCellsOfEachTable) {
  const std::string schLine =
      "-1\t5\t9\t7\t1998\t12\t7\t1998\t540\t600\t3\t-1072548778\t1\t-1072548778\t4100\t1\t"
      "30\tTitle\tPlace\tline1\r\nline2\t1\tSCHALARM\t15\t0";
  SchDatTable list;
  list.AddItem(schLine);
  EXPECT_EQ(list.Line(1), schLine);

  std::string yearLine = "1998\t-1\t0";
  for (int i = 0; i < 24; ++i) yearLine += "\t" + std::to_string(i == 5 ? 1073741824 : i);
  EXPECT_EQ(Table<AncYYRow>::LineOf(Table<AncYYRow>::RowFromLine(yearLine)), yearLine);

  std::string monthLine = "12\t-1";
  for (int d = 1; d <= 31; ++d) monthLine += "\t" + std::to_string(d % 3 == 0 ? d : -1);
  EXPECT_EQ(Table<AncMMRow>::LineOf(Table<AncMMRow>::RowFromLine(monthLine)), monthLine);
}

TEST(Table, CellNumberReadsLikeTheCellsAreRead) {
  EXPECT_EQ(CellNumber("42"), 42);
  EXPECT_EQ(CellNumber("-1"), -1);
  EXPECT_EQ(CellNumber(""), 0);
  EXPECT_EQ(CellNumber("12abc"), 12);
  EXPECT_EQ(CellNumber("-2147483648"), INT32_MIN);
  EXPECT_EQ(CellNumber("3221225472"), static_cast<std::int32_t>(0xC0000000u));
}

// The stamp index answers as a scan of the table would, in row order, while rows are added
// one by one (waiting to be sorted in), in bulk (sorted in at once), and after a change that
// is not an append (built anew).
TEST(RowIndex, AnswersAsAScanOfTheRowsWhileTheyAreAdded) {
  SchDatCTL ctl;
  std::mt19937 random(7);
  const auto check = [&](const char* when) {
    for (std::int32_t stamp = -3; stamp < 40; ++stamp) {
      std::vector<int> scanned;
      for (int row = 0; row < ctl.SchDatList.Rows(); ++row) {
        if (ctl.SchDatList.At(row).Stamp == stamp) scanned.push_back(row);
      }
      const RowList found = StampRows(ctl, stamp);
      ASSERT_EQ(std::vector<int>(found.begin(), found.end()), scanned) << when << " " << stamp;
    }
  };
  const auto add = [&](int rows) {
    for (int i = 0; i < rows; ++i) {
      SchDatRow row;
      row.Stamp = static_cast<std::int32_t>(random() % 43) - 3;
      ctl.SchDatList.Append(row);
    }
  };
  add(3000);
  check("in bulk");
  for (int i = 0; i < 1500; ++i) {
    add(1);
    if (i % 100 == 0) check("one by one");
  }
  check("sorted in");
  ctl.SchDatList.SetCell(5, kColStamp, "17");
  check("after a change");
}

}  // namespace
}  // namespace sched
