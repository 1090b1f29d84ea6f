#pragma once

// The holiday dialogs' own words, as the user reads them.
namespace sched::holiday_texts {

inline constexpr const char* kSettingHoliday = "Setting Holiday";
inline constexpr const char* kSettingWeekend = "Setting Weekend";
inline constexpr const char* kSelectCountry = "Select Country Information";

// The weekday captions of the weekly dialog, Sunday first ("Fri" has two blanks).
inline constexpr const char* kWeekdayCaptions[7] = {" Sun", " Mon",  " Tue", " Wed",
                                                    " Thu", "  Fri", " Sat"};
inline constexpr const char* kSetReset = "Select/Deselect";

// The per-day dialog's question: one of the three statements, then "\n\r" and the question.
inline constexpr const char* kSettingHolidayBack = "Setting back to Holiday.";
inline constexpr const char* kSettingWorkday = "Setting a Workday.";
inline constexpr const char* kSettingAHoliday = "Setting a Holiday.";

inline constexpr const char* kCountryFileInvalid =
    "Not found or invalid format file \nNot setting holidays.";
inline constexpr const char* kAskCopyToDevice =
    "Do you want to change holiday information on Tarvex?";

}  // namespace sched::holiday_texts
