#pragma once

#include <cstdint>
#include <vector>

namespace sched {

// Two points: a line from (x1, y1) to (x2, y2), or the box of which they are opposite corners.
struct LineF {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
};

// The box, in the bar's pixels, that stands for a span of minutes on a bar of the given size:
// 0:00 at the left edge, 24:00 at the right, from above the top to the bottom.
LineF SpanBox(int startTime, int endTime, int scaleWidth, int scaleHeight);

// The time bar. Every box covers the bar's whole height, so its picture is one colour per pixel
// column: the ground or the span colour.
class TimeBar {
 public:
  enum class Paint : std::uint8_t { Ground, Span };

  // The bar's size in pixels; the picture starts blank.
  void SetScale(int scaleWidth, int scaleHeight);
  int ScaleWidth() const { return width_; }
  int ScaleHeight() const { return height_; }

  // Paints the whole bar in its ground colour.
  void Blank();
  // Paints one span in the span colour; nothing for a span without time (start -1).
  void DrawTimeSpan(int startTime, int endTime);
  // Paints the span's box in the ground colour.
  void EraseTimeSpan(int startTime, int endTime);

  const std::vector<Paint>& Columns() const { return columns_; }
  Paint At(int x) const { return columns_[static_cast<std::size_t>(x)]; }
  // The pixel column of a time of day.
  int ColumnOf(int minutes) const;

 private:
  void Fill(int startTime, int endTime, Paint paint);

  int width_ = 0;
  int height_ = 0;
  std::vector<Paint> columns_;
};

}  // namespace sched
