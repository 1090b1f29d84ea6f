#pragma once

#include <array>
#include <limits>

#include "views/month_view_model.h"
#include "views/time_bar.h"

namespace sched {

// A rectangle in twips or pixels, as floating values.
struct RectF {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  double Right() const { return left + width; }
  double Bottom() const { return top + height; }
  friend bool operator==(const RectF&, const RectF&) = default;
};

// Twips in one pixel: 15 at 96 dots per inch.
constexpr double TwipsPerPixel(double dpi) {
  return 1440.0 / dpi;
}

// The places that the resize leaves as they were designed, in twips. The tab's children are
// placed relative to the tab's top left corner, its strip of tab buttons included.
struct DesignPlaces {
  double tabLeft = 120;
  double tabTop = 660;
  double tabStripHeight = 360;
  double frameDateWidth = 3300;
  double frameDateHeight = 420;
  double labelProgressLeft = 120;
  double labelProgressWidth = 1200;
  double progressHeight = 300;
  // Day tab.
  double hourLabelTop = 420;
  double hourLabelWidth = 300;
  double hourLabelHeight = 195;
  double pictLeft = 360;
  double pictTop = 660;
  double pictHeight = 300;
  double list1Left = 240;
  double list1Top = 1260;
  double calendarTop = 1100;
  double buttonHeight = 240;
  double comYYWidth = 375;  // the arrow buttons' width before the first resize
  // Month tab.
  double head0Left = 200;
  double head0Top = 420;
  double cell0Left = 200;
};

// Where every control of both tabs stands. Children of the tab are relative to the tab.
struct FormLayout {
  RectF SSTab1;
  RectF FrameDate;
  RectF LabelProgress;
  RectF ProgressBar;
  // Day tab.
  RectF List1;
  double List1ColWidth = 0;
  RectF CSCal4;
  RectF Pict;
  std::array<RectF, 13> Label3;  // hour scale: Label3(2k) is entry k
  std::array<RectF, 2> Label5;   // "AM", "PM"
  LineF Line1;                   // base line of the scale
  std::array<LineF, 3> Line2;    // ticks at 0:00, noon and 24:00
  std::array<RectF, 3> ComMM;
  std::array<RectF, 3> ComYY;
  std::array<RectF, 2> Label4;  // "Month" and "Year", between the arrows
  // Month tab.
  std::array<RectF, 7> Label8;
  std::array<RectF, kMonthCells> Label1;
  std::array<RectF, kMonthCells> Label2;
  std::array<RectF, kMonthCells> Label9;
  std::array<RectF, kMonthCells> Grid1;
  std::array<double, kMonthCells> Grid1ColWidth{};

  // The same layout with every length multiplied by `factor`.
  FormLayout Scaled(double factor) const;
};

// Form_Resize in twips: the window's outer width and height, the design places, and the arrow
// buttons' width as the last layout left it.
FormLayout LayoutTwips(double width, double height, const DesignPlaces& design, double comYYWidth);

// Form_Resize from the window's size in pixels at `dpi`; the result in pixels.
FormLayout Form_Resize(double widthPx, double heightPx, double dpi, const DesignPlaces& design = {},
                       double comYYWidthTwips = 375);

// The date label's left edge: right-aligned on the tab, 200 twips from its edge, but never left
// of `leftmost`, where the controls before it end; a label without room is cut at its right.
// Lengths are in twips, or in pixels with `twipsPerUnit` = TwipsPerPixel(dpi).
double PlaceDateLabel(const RectF& tab, double labelWidth, double twipsPerUnit = 1.0,
                      double leftmost = std::numeric_limits<double>::lowest());

// ComDt in the lower right corner of the selected cell, keeping its size.
RectF PlaceComDt(const FormLayout& layout, int cell, double width, double height);

// A window moved just enough to lie wholly on `area`, the screen's part that windows may take;
// one larger than the area keeps its top left corner on it, where its caption is.
RectF KeepOnArea(const RectF& window, const RectF& area);
// A window made no larger than `area` and kept on it, so that a place saved on a larger screen,
// or at a smaller scale, comes back with every control in reach.
RectF FitToArea(const RectF& window, const RectF& area);
// A window of the size in the middle of `area`, and kept on it.
RectF CentreOnArea(double width, double height, const RectF& area);

}  // namespace sched
