#include "views/layout.h"

#include <algorithm>

namespace sched {
namespace {

double AtLeast(double value, double floor) {
  return value < 0 ? floor : value;
}

RectF Scale(const RectF& r, double f) {
  return {r.left * f, r.top * f, r.width * f, r.height * f};
}
LineF Scale(const LineF& l, double f) {
  return {l.x1 * f, l.y1 * f, l.x2 * f, l.y2 * f};
}

template <typename T, std::size_t N>
void ScaleAll(std::array<T, N>& items, double f) {
  for (T& item : items) item = Scale(item, f);
}

void LayoutFrame(FormLayout& l, double W, double H, const DesignPlaces& d) {
  l.SSTab1 = {d.tabLeft, d.tabTop, AtLeast(W - 240, 0), AtLeast(H - 1680, 0)};
  l.FrameDate = {l.SSTab1.Right() - d.frameDateWidth, l.SSTab1.Bottom() + 10, d.frameDateWidth,
                 d.frameDateHeight};
  const double end = l.FrameDate.left - 200;
  const double labelWidth = std::clamp(end - d.labelProgressLeft, 0.0, d.labelProgressWidth);
  l.LabelProgress = {d.labelProgressLeft, l.FrameDate.top, labelWidth, d.progressHeight};
  const double barLeft = l.LabelProgress.Right() + 60;
  l.ProgressBar = {barLeft, l.FrameDate.top, AtLeast(end - barLeft, 0), d.progressHeight};
}

void LayoutDayTab(FormLayout& l, double W, double H, const DesignPlaces& d, double comYYWidth) {
  l.List1 = {d.list1Left, d.list1Top, W / 8880 * 4335, AtLeast(H - 3060, 1)};
  l.List1ColWidth = l.List1.width;

  l.Pict = {d.pictLeft, d.pictTop, AtLeast(W - 720, 0), d.pictHeight};
  const double step = l.Pict.width / 12;
  for (std::size_t k = 0; k < l.Label3.size(); ++k) {
    const double x = l.Pict.left + static_cast<double>(k) * step;
    l.Label3[k] = {x - d.hourLabelWidth / 2, d.hourLabelTop, d.hourLabelWidth, d.hourLabelHeight};
  }
  const double half = l.Pict.width / 2;
  for (std::size_t i = 0; i < 2; ++i) {
    l.Label5[i] = {l.Pict.left + static_cast<double>(i) * half, d.hourLabelTop - d.hourLabelHeight,
                   half, d.hourLabelHeight};
  }
  const double base = l.Pict.top - 30;
  l.Line1 = {l.Pict.left, base, l.Pict.Right(), base};
  for (std::size_t i = 0; i < 3; ++i) {
    const double x = l.Pict.left + static_cast<double>(i) * half;
    l.Line2[i] = {x, base - 60, x, base};
  }

  const double listRight = l.List1.Right();
  const double calendarWidth = l.SSTab1.width - (listRight + 345 + 285);
  l.CSCal4 = {listRight + 345, d.calendarTop, calendarWidth > 0 ? calendarWidth : 0,
              AtLeast(H - 3370, 1)};

  const double quarter = l.CSCal4.width / 4;
  double bw = quarter;
  if (4 * comYYWidth <= l.CSCal4.width) bw = quarter < 500 ? comYYWidth : 500;
  const double y = l.CSCal4.Bottom() + 40;
  const double right = l.CSCal4.Right();
  for (std::size_t row = 0; row < 2; ++row) {
    auto& buttons = row == 0 ? l.ComMM : l.ComYY;
    const double top = y + 240 * static_cast<double>(row);
    buttons[0] = {l.CSCal4.left, top, bw, d.buttonHeight};
    buttons[1] = {right - 2 * bw, top, bw, d.buttonHeight};
    buttons[2] = {right - bw, top, bw, d.buttonHeight};
    l.Label4[row] = {buttons[0].Right(), top, AtLeast(buttons[1].left - buttons[0].Right(), 0),
                     d.buttonHeight};
  }
}

void LayoutMonthTab(FormLayout& l, const DesignPlaces& d) {
  double cw = (l.SSTab1.width - 400) / 7 + 30;
  const double cs = AtLeast(cw - 30, 1);
  cw = AtLeast(cw, 1);
  for (std::size_t i = 0; i < l.Label8.size(); ++i) {
    l.Label8[i] = {d.head0Left + static_cast<double>(i) * cs, d.head0Top, cw, 270};
  }
  double rt = d.head0Top + 270 + 30;
  double lt = rt + 30;
  const double ch = AtLeast((l.SSTab1.height + 320 - lt - 330) / 6, 1);
  const double nh = std::clamp(ch, 0.0, 190.0);
  const double nw = cw < 220 ? 0 : 220;
  const double mw = AtLeast(cw - nw - 105, 0);
  for (int row = 0; row < 6; ++row) {
    double x = d.cell0Left;
    for (int col = 0; col < 7; ++col) {
      const auto c = static_cast<std::size_t>(row * 7 + col);
      l.Label1[c] = {x + 50, lt, nw, nh};
      // A long name runs over the next cell's number side; the last column cuts it.
      l.Label2[c] = {x + 50 + nw + 50, lt, col == 6 ? mw : mw + cw, nh};
      l.Label9[c] = {x, rt, cw, ch};
      const double top = l.Label1[c].Bottom();
      l.Grid1[c] = {l.Label9[c].left + 24, top, AtLeast(cw - 56, 0),
                    AtLeast(l.Label9[c].Bottom() - top - 36, 0)};
      l.Grid1ColWidth[c] = l.Grid1[c].width;
      x += cs;
    }
    rt += ch - 30;
    lt = rt + 30;
    if (rt < 0) rt = lt = 1;
  }
}

}  // namespace

FormLayout FormLayout::Scaled(double f) const {
  FormLayout s = *this;
  for (RectF* r :
       {&s.SSTab1, &s.FrameDate, &s.LabelProgress, &s.ProgressBar, &s.List1, &s.CSCal4, &s.Pict}) {
    *r = Scale(*r, f);
  }
  s.List1ColWidth *= f;
  ScaleAll(s.Label3, f);
  ScaleAll(s.Label5, f);
  s.Line1 = Scale(s.Line1, f);
  ScaleAll(s.Line2, f);
  ScaleAll(s.ComMM, f);
  ScaleAll(s.ComYY, f);
  ScaleAll(s.Label4, f);
  ScaleAll(s.Label8, f);
  ScaleAll(s.Label1, f);
  ScaleAll(s.Label2, f);
  ScaleAll(s.Label9, f);
  ScaleAll(s.Grid1, f);
  for (double& w : s.Grid1ColWidth) w *= f;
  return s;
}

FormLayout LayoutTwips(double width, double height, const DesignPlaces& design, double comYYWidth) {
  FormLayout l;
  LayoutFrame(l, width, height, design);
  LayoutDayTab(l, width, height, design, comYYWidth);
  LayoutMonthTab(l, design);
  return l;
}

FormLayout Form_Resize(double widthPx, double heightPx, double dpi, const DesignPlaces& design,
                       double comYYWidthTwips) {
  const double twips = TwipsPerPixel(dpi);
  return LayoutTwips(widthPx * twips, heightPx * twips, design, comYYWidthTwips).Scaled(1 / twips);
}

double PlaceDateLabel(const RectF& tab, double labelWidth, double twipsPerUnit, double leftmost) {
  return std::max(tab.left + tab.width - labelWidth - 200 / twipsPerUnit, leftmost);
}

RectF PlaceComDt(const FormLayout& layout, int cell, double width, double height) {
  const auto c = static_cast<std::size_t>(cell);
  const RectF& plate = layout.Label9[c];
  const double right = cell % 7 == 6 ? plate.Right() : layout.Label9[c + 1].left;
  const double bottom = cell >= 35 ? plate.Bottom() : layout.Label9[c + 7].top;
  return {right - width, bottom - height, width, height};
}

RectF KeepOnArea(const RectF& window, const RectF& area) {
  RectF kept = window;
  kept.left = std::max(std::min(window.left, area.Right() - window.width), area.left);
  kept.top = std::max(std::min(window.top, area.Bottom() - window.height), area.top);
  return kept;
}

RectF FitToArea(const RectF& window, const RectF& area) {
  return KeepOnArea({window.left, window.top, std::min(window.width, area.width),
                     std::min(window.height, area.height)},
                    area);
}

RectF CentreOnArea(double width, double height, const RectF& area) {
  return KeepOnArea(
      {area.left + (area.width - width) / 2, area.top + (area.height - height) / 2, width, height},
      area);
}

}  // namespace sched
