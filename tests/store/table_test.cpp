#include "store/table.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace sched
