#include "views/time_bar.h"

#include <algorithm>
#include <cmath>

namespace sched {
namespace {

constexpr double kMinutesOfDay = 1440.0;

}  // namespace

LineF SpanBox(int startTime, int endTime, int scaleWidth, int scaleHeight) {
  const double k = scaleWidth / kMinutesOfDay;
  return {startTime * k, -1.0, endTime * k, static_cast<double>(scaleHeight)};
}

void TimeBar::SetScale(int scaleWidth, int scaleHeight) {
  width_ = std::max(0, scaleWidth);
  height_ = std::max(0, scaleHeight);
  columns_.assign(static_cast<std::size_t>(width_), Paint::Ground);
}

void TimeBar::Blank() {
  std::fill(columns_.begin(), columns_.end(), Paint::Ground);
}

int TimeBar::ColumnOf(int minutes) const {
  return static_cast<int>(std::lround(SpanBox(minutes, minutes, width_, height_).x1));
}

void TimeBar::DrawTimeSpan(int startTime, int endTime) {
  if (startTime == -1) return;
  Fill(startTime, endTime, Paint::Span);
}

void TimeBar::EraseTimeSpan(int startTime, int endTime) {
  Fill(startTime, endTime, Paint::Ground);
}

void TimeBar::Fill(int startTime, int endTime, Paint paint) {
  if (width_ == 0) return;
  // A filled box takes in both its edges, so even a span of no width paints one column.
  int from = ColumnOf(startTime);
  int to = ColumnOf(endTime);
  if (from > to) std::swap(from, to);
  from = std::clamp(from, 0, width_ - 1);
  to = std::clamp(to, 0, width_ - 1);
  std::fill(columns_.begin() + from, columns_.begin() + to + 1, paint);
}

}  // namespace sched
