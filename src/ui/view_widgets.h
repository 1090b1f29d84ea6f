#pragma once

#include <QColor>
#include <QFont>
#include <QListWidget>
#include <QPalette>
#include <QRect>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

#include "ui/rgb_color.h"
#include "views/layout.h"
#include "views/view_colors.h"
#include "views/view_commands.h"

namespace sched {

// What a tab hands to the window after an event of the views: the command the views ask for.
// The window runs it and then shows the views' new state.
using ViewActionSink = std::function<void(const ViewAction&)>;

// A colour of the views (red in the low byte) as the widget paints it; the window colour is
// the palette's base, the ground of lists and editable fields.
inline QColor ViewColor(std::uint32_t color, const QPalette& palette) {
  if (color == kWindowColor) return palette.color(QPalette::Base);
  return RgbColor(color);
}
inline QColor ViewColor(CellBack back, const QPalette& palette) {
  return ViewColor(ColorValue(back), palette);
}
inline QColor ViewColor(DayColor color, const QPalette& palette) {
  return ViewColor(ColorValue(color), palette);
}

// A rectangle of the layout on the pixel grid: the sides as they fall, the size rounded.
inline QRect PixelRect(const RectF& r) {
  return QRect(static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.width + 0.5),
               static_cast<int>(r.height + 0.5));
}

// A place of the views in twips on the pixel grid; an error of the conversion's last digits
// does not put it on the pixel before.
inline int Pixels(double twips, double twipsPerPixel) {
  return static_cast<int>(std::floor(twips / twipsPerPixel + 1e-6));
}

// The window system's code of the keys the views react to (Enter 13, Left 37, F1 112, ...);
// 0 for every other key.
inline int ViewKeyOf(int qtKey) {
  switch (qtKey) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return kKeyEnter;
    case Qt::Key_Escape: return kKeyEscape;
    case Qt::Key_PageUp: return kKeyPageUp;
    case Qt::Key_PageDown: return kKeyPageDown;
    case Qt::Key_End: return kKeyEnd;
    case Qt::Key_Home: return kKeyHome;
    case Qt::Key_Left: return kKeyLeft;
    case Qt::Key_Up: return kKeyUp;
    case Qt::Key_Right: return kKeyRight;
    case Qt::Key_Down: return kKeyDown;
    case Qt::Key_Delete: return kKeyDelete;
    case Qt::Key_F1: return kKeyF1;
    default: return 0;
  }
}

// The selection of a list widget: the current row and the selection's other end, the one away
// from the current row; -1 for both without a selection.
inline ListSelection SelectionOf(const QListWidget* list) {
  if (!list->selectionModel()->hasSelection()) return {list->count(), -1, -1};
  const int row = list->currentRow();
  int first = row;
  int last = row;
  for (const QModelIndex& index : list->selectionModel()->selectedRows()) {
    first = std::min(first, index.row());
    last = std::max(last, index.row());
  }
  return {list->count(), row, first != row ? first : last};
}

// A widget's font scaled by `factor`, bold when asked.
inline QFont ScaledFont(const QFont& base, double factor, bool bold = false) {
  QFont font = base;
  if (base.pointSizeF() > 0) {
    font.setPointSizeF(base.pointSizeF() * factor);
  } else {
    font.setPixelSize(static_cast<int>(base.pixelSize() * factor + 0.5));
  }
  font.setBold(bold);
  return font;
}

}  // namespace sched
