#include "views/layout.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

void ExpectNoNegativeSize(const RectF& r, const char* what, int index = 0) {
  EXPECT_GE(r.width, 0) << what << index;
  EXPECT_GE(r.height, 0) << what << index;
}

// The list's share, the hour scale over the bar and the list button in a cell's corner.
TEST(Layout, TheDesignSize) {
  const FormLayout l = LayoutTwips(8880, 6600, {}, 375);
  EXPECT_DOUBLE_EQ(l.List1.width, 4335);
  EXPECT_DOUBLE_EQ(l.List1ColWidth, 4335);
  EXPECT_DOUBLE_EQ(l.SSTab1.width, 8640);
  EXPECT_DOUBLE_EQ(l.SSTab1.height, 4920);
  EXPECT_DOUBLE_EQ(l.List1.height, 3540);
  EXPECT_DOUBLE_EQ(l.CSCal4.left, l.List1.Right() + 345);
  EXPECT_DOUBLE_EQ(l.CSCal4.Right(), l.SSTab1.width - 285);

  EXPECT_DOUBLE_EQ(l.Pict.width, 8160);
  for (std::size_t k = 1; k < l.Label3.size(); ++k) {
    EXPECT_DOUBLE_EQ(l.Label3[k].left - l.Label3[k - 1].left, 680);
  }
  EXPECT_DOUBLE_EQ(l.Line2[1].x1, l.Pict.left + 4080);
  EXPECT_DOUBLE_EQ(l.Line2[2].x1, l.Pict.Right());

  const RectF inner = PlaceComDt(l, 8, 200, 150);
  EXPECT_DOUBLE_EQ(inner.Right(), l.Label9[9].left);
  EXPECT_DOUBLE_EQ(inner.Bottom(), l.Label9[15].top);
  const RectF corner = PlaceComDt(l, 41, 200, 150);
  EXPECT_DOUBLE_EQ(corner.Right(), l.Label9[41].Right());
  EXPECT_DOUBLE_EQ(corner.Bottom(), l.Label9[41].Bottom());
  const RectF lastColumn = PlaceComDt(l, 13, 200, 150);
  EXPECT_DOUBLE_EQ(lastColumn.Right(), l.Label9[13].Right());
}

TEST(TinyWindow, NoNegativeSizes) {
  for (const CaseRow& row : ReadCases("views/tiny-windows.txt", 2, 6)) {
    SCOPED_TRACE(row.where);
    const FormLayout l = LayoutTwips(row.Int(0), row.Int(1), {}, 375);
    ExpectNoNegativeSize(l.SSTab1, "tab");
    ExpectNoNegativeSize(l.ProgressBar, "progress");
    ExpectNoNegativeSize(l.LabelProgress, "progress label");
    ExpectNoNegativeSize(l.List1, "list");
    ExpectNoNegativeSize(l.CSCal4, "calendar");
    ExpectNoNegativeSize(l.Pict, "bar");
    for (int i = 0; i < 3; ++i) ExpectNoNegativeSize(l.ComYY[i], "ComYY", i);
    for (int i = 0; i < 2; ++i) ExpectNoNegativeSize(l.Label4[i], "Label4", i);
    for (int c = 0; c < kMonthCells; ++c) {
      ExpectNoNegativeSize(l.Label1[c], "Label1", c);
      ExpectNoNegativeSize(l.Label2[c], "Label2", c);
      ExpectNoNegativeSize(l.Label9[c], "Label9", c);
      ExpectNoNegativeSize(l.Grid1[c], "Grid1", c);
    }
    EXPECT_GE(l.List1.height, 1);
    EXPECT_GE(l.CSCal4.height, 1);
    EXPECT_GE(l.Label9[0].height, 1);
  }
}

TEST(Layout, NarrowCellsDropTheDayNumber) {
  // Cells under 220 wide: (W - 240 - 400) / 7 + 30 < 220.
  const FormLayout l = LayoutTwips(1900, 6600, {}, 375);
  EXPECT_LT(l.Label9[0].width, 220);
  EXPECT_DOUBLE_EQ(l.Label1[0].width, 0);
  EXPECT_DOUBLE_EQ(l.Label2[6].width, std::max(0.0, l.Label9[0].width - 105));
}

TEST(Layout, ArrowButtonWidth) {
  // Wide calendar: 500 at most, or the present width while the quarter is under 500.
  EXPECT_DOUBLE_EQ(LayoutTwips(12000, 6600, {}, 375).ComYY[0].width, 500);
  const FormLayout mid = LayoutTwips(6000, 6600, {}, 375);
  EXPECT_LT(mid.CSCal4.width / 4, 500);
  EXPECT_GE(mid.CSCal4.width, 4 * 375);
  EXPECT_DOUBLE_EQ(mid.ComYY[0].width, 375);
  // Narrow: a quarter of the calendar each.
  const FormLayout narrow = LayoutTwips(4500, 6600, {}, 375);
  EXPECT_LT(narrow.CSCal4.width, 4 * 375);
  EXPECT_DOUBLE_EQ(narrow.ComMM[0].width, narrow.CSCal4.width / 4);
  EXPECT_DOUBLE_EQ(narrow.ComMM[2].Right(), narrow.CSCal4.Right());
  EXPECT_DOUBLE_EQ(narrow.ComYY[0].top, narrow.ComMM[0].top + 240);
}

TEST(Layout, PixelsScaleWithDpi) {
  const FormLayout at96 = Form_Resize(592, 440, 96);  // 8880 x 6600 twips
  EXPECT_DOUBLE_EQ(at96.List1.width, 289);            // 4335 / 15
  const FormLayout at144 = Form_Resize(888, 660, 144);
  EXPECT_DOUBLE_EQ(at144.List1.width, 433.5);
  EXPECT_DOUBLE_EQ(at144.Label9[10].left, at96.Label9[10].left * 1.5);
  EXPECT_DOUBLE_EQ(TwipsPerPixel(96), 15);
}

TEST(Layout, DateLabelRightAligned) {
  const RectF tab{120, 660, 8640, 4920};
  EXPECT_DOUBLE_EQ(PlaceDateLabel(tab, 1500), 120 + 8640 - 1500 - 200);
  EXPECT_DOUBLE_EQ(PlaceDateLabel({8, 44, 576, 328}, 100, 15), 8 + 576 - 100 - 200.0 / 15);
}

TEST(Layout, WindowsStayWhollyOnTheScreensArea) {
  const RectF area{0, 40, 1280, 860};  // a panel takes the screen's top 40
  const struct {
    RectF window;
    double left;
    double top;
  } cases[] = {
      {{100, 100, 300, 200}, 100, 100},   // on the area: it stays
      {{1100, 800, 300, 200}, 980, 700},  // over the right and bottom edges: moved back
      {{-50, 0, 300, 200}, 0, 40},        // over the left and top edges
      {{500, 500, 1400, 1000}, 0, 40},    // larger than the area: its top left corner on it
  };
  for (const auto& c : cases) {
    EXPECT_EQ(KeepOnArea(c.window, area), (RectF{c.left, c.top, c.window.width, c.window.height}))
        << c.window.left << "," << c.window.top;
  }
  EXPECT_EQ(CentreOnArea(400, 300, area), (RectF{440, 320, 400, 300}));
  EXPECT_EQ(CentreOnArea(1400, 300, area), (RectF{0, 320, 1400, 300}));
}

RectF RectOf(const std::string& text) {
  RectF rect;
  std::istringstream(text) >> rect.left >> rect.top >> rect.width >> rect.height;
  return rect;
}

TEST(Layout, RestoredPlacesFitTheScreensArea) {
  for (const CaseRow& row : ReadCases("views/window-fits.txt", 3, 8)) {
    const RectF fitted = FitToArea(RectOf(row[0]), RectOf(row[1]));
    EXPECT_EQ(fitted, RectOf(row[2])) << row.where << ": " << fitted.left << " " << fitted.top
                                      << " " << fitted.width << " " << fitted.height;
  }
}

}  // namespace
}  // namespace sched
