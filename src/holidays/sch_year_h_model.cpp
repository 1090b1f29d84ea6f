#include "holidays/sch_year_h_model.h"

#include "core/app_texts.h"
#include "holidays/holiday_texts.h"

namespace sched {
namespace {

std::size_t MonthIndex(int month) {
  return static_cast<std::size_t>(month - 1);
}

}  // namespace

DayQuestion ChooseDayQuestion(bool offBit, bool dayIsWeekly, bool onBit, bool named) {
  if (dayIsWeekly) {
    return {1, offBit ? holiday_texts::kSettingHolidayBack : holiday_texts::kSettingWorkday};
  }
  // On another weekday the date is a holiday when exactly one of its mark and its name holds;
  // the question offers the other state.
  const bool holidayNow = onBit != named;
  return {0, holidayNow ? holiday_texts::kSettingWorkday : holiday_texts::kSettingAHoliday};
}

void SchYearHModel::Form_Load() {
  ScheduleDocument& doc = store_.Document();
  date_ = {doc.CurYear, doc.CurMonth, doc.CurDay};
  yday_ = dates_.ShortDate(date_.year, date_.month, date_.day);

  // A year that had no row yet has no marks.
  const AncYYRow& year = doc.Tables.AncYY.At(store_.FindOrAddYear(date_.year));
  doc.ShownYearMasks.HolidayOn = year.HolidayOn;
  doc.ShownYearMasks.HolidayOff = year.HolidayOff;

  dayIsWeekly_ = doc.WeekHoliday[static_cast<std::size_t>(WeekdayOf(date_))];
  const auto bit = static_cast<std::int32_t>(1u << (date_.day - 1));
  const std::int32_t on = doc.ShownYearMasks.HolidayOn[MonthIndex(date_.month)];
  const std::int32_t off = doc.ShownYearMasks.HolidayOff[MonthIndex(date_.month)];
  newHolidayOn_ = on ^ bit;
  newHolidayOff_ = off ^ bit;

  std::string name;
  const bool named = named_.GetHolidayName(date_.year, date_.month, date_.day, name) == -1;
  const DayQuestion question =
      ChooseDayQuestion((off & bit) != 0, dayIsWeekly_ != 0, (on & bit) != 0, named);
  editsOff_ = question.EditsOff;
  label2_ = std::string(question.statement) + "\n\r" + texts::kAreYouSure;
}

void SchYearHModel::Command1_Click() {
  ScheduleDocument& doc = store_.Document();
  const int row = store_.FindOrAddYear(date_.year);
  const std::size_t m = MonthIndex(date_.month);
  if (editsOff_ == 1) {
    doc.ShownYearMasks.HolidayOff[m] = newHolidayOff_;
    doc.Tables.AncYY.SetCell(row, date_.month + 14, std::to_string(newHolidayOff_));
  } else {
    doc.ShownYearMasks.HolidayOn[m] = newHolidayOn_;
    doc.Tables.AncYY.SetCell(row, date_.month + 2, std::to_string(newHolidayOn_));
  }
  doc.Dirty = true;
  host_.SetModifiedMark();
}

bool SchYearHModel::Form_KeyDown(int keyCode) {
  if (keyCode != kKeyF1) return false;
  host_.ShowHelp();
  return true;
}

}  // namespace sched
