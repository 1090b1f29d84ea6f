#pragma once

#include <cstdint>
#include <string>

#include "core/calendar.h"
#include "holidays/holiday_dialog_host.h"
#include "holidays/holiday_model.h"
#include "platform/date_formatter.h"
#include "store/schedule_store.h"

namespace sched {

// What the per-day dialog offers for a date: which mask it edits (1 HolidayOff, 0 HolidayOn)
// and the statement it asks about.
struct DayQuestion {
  int EditsOff = 0;
  const char* statement = "";
};

// The offer for a date from its two mask bits, whether its weekday is a weekly holiday and
// whether it is a named holiday.
DayQuestion ChooseDayQuestion(bool offBit, bool dayIsWeekly, bool onBit, bool named);

// The per-day holiday dialog (SchYearH): it flips the current date's bit in the one mask that
// applies to the date's weekday, after asking.
class SchYearHModel {
 public:
  SchYearHModel(ScheduleStore& store, const NamedHolidays& named, const DateFormatter& dates,
                HolidayDialogHost& host)
      : store_(store), named_(named), dates_(dates), host_(host) {}

  // Makes sure the current year has its row (the row stays even if the dialog is cancelled),
  // takes its masks into the shown year's arrays and chooses the question.
  void Form_Load();
  // OK: stores the flipped mask in the shown year's array and in the year's row.
  void Command1_Click();
  // Cancel changes nothing.
  void Command2_Click() {}
  // F1; true when the key was used.
  bool Form_KeyDown(int keyCode);

  const CivilDate& CAL() const { return date_; }
  const std::string& Yday() const { return yday_; }
  const std::string& Label2() const { return label2_; }
  std::int16_t DayIsWeekly() const { return dayIsWeekly_; }
  int EditsOff() const { return editsOff_; }
  std::int32_t NewHolidayOn() const { return newHolidayOn_; }
  std::int32_t NewHolidayOff() const { return newHolidayOff_; }

 private:
  ScheduleStore& store_;
  const NamedHolidays& named_;
  const DateFormatter& dates_;
  HolidayDialogHost& host_;
  CivilDate date_;
  std::string yday_;
  std::string label2_;
  std::int16_t dayIsWeekly_ = 0;
  int editsOff_ = 0;
  std::int32_t newHolidayOn_ = 0;
  std::int32_t newHolidayOff_ = 0;
};

}  // namespace sched
