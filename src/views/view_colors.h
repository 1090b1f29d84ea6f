#pragma once

#include <cstdint>

#include "core/colors.h"

namespace sched {

// Colours of the views as numbers, red in the low byte. The window colour is the system
// colour that the widget resolves itself.
inline constexpr std::uint32_t kWindowColor = 0x80000005u;
inline constexpr std::uint32_t kGreyColor = 0xE0E0E0u;
inline constexpr std::uint32_t kSelectionColor = 0xC0FFFFu;  // also the day marks of the calendar
inline constexpr std::uint32_t kBlackColor = 0u;
inline constexpr std::uint32_t kTimeSpanColor = 0x800000u;  // dark blue of the time bar's spans

// Colour of a day number or a weekday head.
enum class DayColor { Black, Red };
// Background shared by the four controls of a month cell.
enum class CellBack { Window, Grey, Selection };

constexpr std::uint32_t ColorValue(DayColor color) {
  return color == DayColor::Red ? kRedColor : kBlackColor;
}
constexpr std::uint32_t ColorValue(CellBack back) {
  switch (back) {
    case CellBack::Grey: return kGreyColor;
    case CellBack::Selection: return kSelectionColor;
    case CellBack::Window: break;
  }
  return kWindowColor;
}
constexpr const char* ColorName(DayColor color) {
  return color == DayColor::Red ? "red" : "black";
}
constexpr const char* ColorName(CellBack back) {
  switch (back) {
    case CellBack::Grey: return "grey";
    case CellBack::Selection: return "selection";
    case CellBack::Window: break;
  }
  return "window";
}

}  // namespace sched
