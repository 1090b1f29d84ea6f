#include "views/time_bar.h"

#include <gtest/gtest.h>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

using Paint = TimeBar::Paint;

int SpanColumns(const TimeBar& bar) {
  int n = 0;
  for (Paint p : bar.Columns()) n += p == Paint::Span ? 1 : 0;
  return n;
}

TEST(TimeBar, SpanBoxMapsMinutesLinearly) {
  const LineF box = SpanBox(540, 600, 720, 20);
  EXPECT_DOUBLE_EQ(box.x1, 270);
  EXPECT_DOUBLE_EQ(box.x2, 300);
  EXPECT_DOUBLE_EQ(box.y1, -1);
  EXPECT_DOUBLE_EQ(box.y2, 20);
}

TEST(TimeBarSpans, FillsBothEdges) {
  for (const CaseRow& row : ReadCases("views/time-bar-spans.txt", 5, 6)) {
    const int firstColumn = row.Int(3), lastColumn = row.Int(4);
    TimeBar bar;
    bar.SetScale(row.Int(0), 16);
    bar.DrawTimeSpan(row.Int(1), row.Int(2));
    EXPECT_EQ(SpanColumns(bar), lastColumn - firstColumn + 1) << row.where;
    EXPECT_EQ(bar.At(firstColumn), Paint::Span) << row.where;
    EXPECT_EQ(bar.At(lastColumn), Paint::Span) << row.where;
  }
}

TEST(TimeBar, EraseAndBlank) {
  TimeBar bar;
  bar.SetScale(1440, 10);
  bar.DrawTimeSpan(0, 1439);
  bar.EraseTimeSpan(60, 119);
  EXPECT_EQ(SpanColumns(bar), 1440 - 60);
  bar.Blank();
  EXPECT_EQ(SpanColumns(bar), 0);
}

TEST(TimeBar, EmptyBarTakesSpansQuietly) {
  TimeBar bar;
  bar.SetScale(0, 0);
  bar.DrawTimeSpan(0, 600);
  EXPECT_TRUE(bar.Columns().empty());
}

}  // namespace
}  // namespace sched
