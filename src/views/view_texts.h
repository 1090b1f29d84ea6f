#pragma once

#include <array>

// The calendar views' own words, as the user reads them.
namespace sched::view_texts {

// Weekday heads of the month grid, Sunday first.
inline constexpr std::array<const char*, 7> kWeekdayHeads = {"Sun", "Mon", "Tue", "Wed",
                                                             "Thu", "Fri", "Sat"};

// The month list of the month tab; list index 0 is January.
inline constexpr std::array<const char*, 12> kMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

// The day tab's calendar: its weekday and month names.
inline constexpr const char* kCalendarWeekdays = "Sun Mon Tue Wed Thu Fri Sat";
inline constexpr const char* kCalendarMonths = "Jan Feb Mar Apr May Jun Jly Aug Sep Oct Nov Dec";

// Captions of the hour scale above the time bar, one for every second hour from 0:00.
inline constexpr std::array<const char*, 13> kHourScale = {"",  "2", "4", "6", "8",  "10", "12",
                                                           "2", "4", "6", "8", "10", "12"};
inline constexpr const char* kAm = "AM";
inline constexpr const char* kPm = "PM";
inline constexpr const char* kMonthArrows = "Month";
inline constexpr const char* kYearArrows = "Year";

// Line texts of the lists.
inline constexpr const char* kAllDayMonth = "Allday ";
inline constexpr const char* kAllDayList = "Allday  ";

// The schedule list dialog.
inline constexpr const char* kScheduleListCaption = "List of Schedule";

}  // namespace sched::view_texts
