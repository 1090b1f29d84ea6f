#include "holidays/sch_week_h_model.h"

#include "core/app_texts.h"
#include "core/calendar.h"
#include "holidays/holiday_texts.h"

namespace sched {
namespace {

std::size_t At(int index) {
  return static_cast<std::size_t>(index);
}

}  // namespace

void SchWeekHModel::Form_Load() {
  saved_ = doc_.WeekHoliday;
  weekChanged_ = 0;
  weekDecided_ = 0;
  // Every caption starts as one without the focus; then the current weekday takes it.
  for (int i = 0; i < 7; ++i) {
    PaintForeColor(i);
    captions_[At(i)].BackColor = kColorWhite;
    captions_[At(i)].FocusMark = captions_[At(i)].ForeColor == kRedColor;
  }
  currentCaption_ = WeekdayOf({doc_.CurYear, doc_.CurMonth, doc_.CurDay});
  MoveFocus(currentCaption_);
}

void SchWeekHModel::SetReset_Click() {
  std::int16_t& flag = doc_.WeekHoliday[At(currentCaption_)];
  flag = flag == 0 ? 1 : 0;
  PaintForeColor(currentCaption_);
  weekChanged_ = -1;
}

void SchWeekHModel::CSCaption1_Click(int index) {
  if (index >= 0 && index < 7) MoveFocus(index);
}

bool SchWeekHModel::Form_KeyDown(int keyCode) {
  switch (keyCode) {
    case kKeyF1: host_.ShowHelp(); return true;
    case kKeyLeft: MoveFocus((currentCaption_ + 6) % 7); return true;
    case kKeyRight: MoveFocus((currentCaption_ + 1) % 7); return true;
    default: return false;
  }
}

void SchWeekHModel::Command2_Click() {
  weekDecided_ = -1;
  MarkModified();
  host_.PaintWeekHeads(doc_.WeekHoliday);
  host_.RefillMonthView();
}

void SchWeekHModel::Command1_Click() {
  weekDecided_ = -1;
  doc_.WeekHoliday = saved_;
}

bool SchWeekHModel::Form_QueryUnload() {
  if (weekChanged_ != -1 || weekDecided_ != 0) return true;
  const MsgAnswer answer = messages_.Show({texts::kAskSaveChanges, holiday_texts::kSettingWeekend,
                                           MsgIcon::Exclamation, MsgButtons::YesNoCancel});
  switch (answer) {
    case MsgAnswer::Cancel: return false;
    case MsgAnswer::No: doc_.WeekHoliday = saved_; return true;
    default:
      // Kept as OK keeps them, but the heads are left to the month view's refill.
      MarkModified();
      host_.RefillMonthView();
      return true;
  }
}

void SchWeekHModel::PaintForeColor(int index) {
  captions_[At(index)].ForeColor = doc_.WeekHoliday[At(index)] != 0 ? kRedColor : kColorButtonText;
}

void SchWeekHModel::MoveFocus(int index) {
  CaptionLook& left = captions_[At(currentCaption_)];
  left.BackColor = kColorWhite;
  left.FocusMark = left.ForeColor == kRedColor;
  currentCaption_ = index;
  CaptionLook& taken = captions_[At(index)];
  taken.BackColor = kColorDarkGreen;
  taken.FocusMark = true;
}

void SchWeekHModel::MarkModified() {
  doc_.Dirty = true;
  host_.SetModifiedMark();
}

}  // namespace sched
