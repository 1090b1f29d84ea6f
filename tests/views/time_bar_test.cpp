#include "views/time_bar.h"

#include <gtest/gtest.h>

namespace sched {
namespace {

using Paint = TimeBar::Paint;

int SpanColumns(const TimeBar& bar) {
  int n = 0;
  for (Paint p : bar.Columns()) n += p == Paint::Span ? 1 : 0;
  return n;
}

TEST(TimeBar, SpanBoxMapsMinutesLinearly) {
  const BarBox box = SpanBox(540, 600, 720, 20);
  EXPECT_DOUBLE_EQ(box.x1, 270);
  EXPECT_DOUBLE_EQ(box.x2, 300);
  EXPECT_DOUBLE_EQ(box.y1, -1);
  EXPECT_DOUBLE_EQ(box.y2, 20);
}

struct SpanCase {
  int width;
  int start;
  int end;
  int firstColumn;
  int lastColumn;
};

class TimeBarSpans : public ::testing::TestWithParam<SpanCase> {};

TEST_P(TimeBarSpans, FillsBothEdges) {
  const SpanCase& c = GetParam();
  TimeBar bar;
  bar.SetScale(c.width, 16);
  bar.DrawTimeSpan(c.start, c.end);
  EXPECT_EQ(SpanColumns(bar), c.lastColumn - c.firstColumn + 1);
  EXPECT_EQ(bar.At(c.firstColumn), Paint::Span);
  EXPECT_EQ(bar.At(c.lastColumn), Paint::Span);
}

INSTANTIATE_TEST_SUITE_P(
    Spans, TimeBarSpans,
    ::testing::Values(SpanCase{1440, 540, 600, 540, 600},   // a pixel a minute
                      SpanCase{720, 540, 600, 270, 300},    // half a pixel a minute
                      SpanCase{300, 600, 601, 125, 125},    // one minute: still one column
                      SpanCase{300, 601, 600, 125, 125},    // reversed ends fill the same box
                      SpanCase{300, 0, 1440, 0, 299},       // the whole day
                      SpanCase{100, 1380, 1440, 96, 99}));  // 24:00 is the right edge

TEST(TimeBar, NoTimeDrawsNothing) {
  TimeBar bar;
  bar.SetScale(200, 10);
  bar.DrawTimeSpan(-1, -1);
  EXPECT_EQ(SpanColumns(bar), 0);
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
