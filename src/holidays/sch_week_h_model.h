#pragma once

#include <array>
#include <cstdint>

#include "core/colors.h"
#include "holidays/holiday_dialog_host.h"
#include "platform/messages.h"
#include "store/document.h"

namespace sched {

// Colours as numbers with red in the low byte; the high bit marks a system colour.
inline constexpr std::uint32_t kColorButtonText = 0x80000012;
inline constexpr std::uint32_t kColorDarkGreen = 0x8000;
inline constexpr std::uint32_t kColorWhite = 0xFFFFFF;

// How one weekday caption of the weekly dialog looks.
struct CaptionLook {
  std::uint32_t ForeColor = kColorButtonText;
  std::uint32_t BackColor = kColorWhite;
  bool FocusMark = false;
  friend bool operator==(const CaptionLook&, const CaptionLook&) = default;
};

// The weekly holiday dialog (SchWeekH): a caption for each weekday, red when the weekday is a
// weekly holiday, and one in focus that the Select/Deselect button toggles. The toggles change
// the schedule's flags at once; Cancel, or No to the question on closing, puts them back.
class SchWeekHModel {
 public:
  SchWeekHModel(ScheduleDocument& doc, Messages& messages, HolidayDialogHost& host)
      : doc_(doc), messages_(messages), host_(host) {}

  // Remembers the flags and puts the focus on the weekday of the current date.
  void Form_Load();
  // Toggles the weekday in focus between weekly holiday and workday.
  void SetReset_Click();
  void CSCaption1_Click(int index);
  // F1, Left and Right; true when the key was used.
  bool Form_KeyDown(int keyCode);
  // OK: keeps the flags, marks the schedule modified and repaints the heads and the month.
  void Command2_Click();
  // Cancel: puts the flags back as they were at load.
  void Command1_Click();
  // The window is about to close; false when the close is refused. Closing another way than
  // by OK or Cancel after a change asks whether to keep it.
  bool Form_QueryUnload();

  const std::array<CaptionLook, 7>& CSCaption1() const { return captions_; }
  int CurrentCaption() const { return currentCaption_; }
  std::int16_t WeekChanged() const { return weekChanged_; }
  std::int16_t WeekDecided() const { return weekDecided_; }

 private:
  void PaintForeColor(int index);
  void MoveFocus(int index);
  void MarkModified();

  ScheduleDocument& doc_;
  Messages& messages_;
  HolidayDialogHost& host_;
  WeekFlags saved_{};
  std::array<CaptionLook, 7> captions_{};
  int currentCaption_ = 0;
  std::int16_t weekChanged_ = 0;
  std::int16_t weekDecided_ = 0;
};

}  // namespace sched
