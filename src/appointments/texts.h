#pragma once

#include <array>

// The appointment dialogs' own words, as the user reads them.
namespace sched::appointment_texts {

// The edit dialog.
inline constexpr const char* kCaptionNew = "Appointment - New";
inline constexpr const char* kCaptionModify = "Appointment - ";
inline constexpr const char* kTitle = "&Title:";
inline constexpr const char* kPlace = "Plac&e:";
inline constexpr const char* kMemo = "&Memo:";
inline constexpr const char* kDate = "&Date:";
inline constexpr const char* kStart = "Start";
inline constexpr const char* kEnd = "End";
inline constexpr const char* kTime = "T&ime:";
inline constexpr const char* kAllDay = "&All day event";
inline constexpr const char* kRepeatButton = "&Repeat ...";
inline constexpr const char* kAlarm = "A&larm:";
inline constexpr const char* kMinutesBefore = "mi&nute(s) before";
inline constexpr const char* kPrivate = "&Private:";
inline constexpr const char* kOk = "&OK";
inline constexpr const char* kCancel = "&Cancel";
inline constexpr const char* kNoTitle = "No Title";
// The tips of the sound preview and word list buttons.
inline constexpr const char* kPreviewTip = "Play the alarm sound";
inline constexpr const char* kSelSubjectTip = "Take the title from a word list";
inline constexpr const char* kSelPlaceTip = "Take the place from a word list";

inline constexpr const char* kCannotFindSound = "Cannot find sound file.";
inline constexpr const char* kAlarmSettingClear = "Alarm setting clear.";
inline constexpr const char* kNotFoundSound = "Not found sound file!";
inline constexpr const char* kSpecifyDate = "Specify the date.";
inline constexpr const char* kInvalidAlarmTime = "Invalid alarm time!";
inline constexpr const char* kOverlap30Days = "A schedule can overlap 30 days at most.";
inline constexpr const char* kInvalidTime = "Invalid time.";
inline constexpr const char* kTooLong = "Input string is too long.";
inline constexpr const char* kMaximumLength = "Maximum string length is";
inline constexpr const char* kCharacters = "chacters";  // spelled so

// The making of occurrences.
inline constexpr const char* kBeyond2099 = "Cannot set schedules beyond 2099/12/31.";
inline constexpr const char* kRemovingRegular = "Removing regular information.";

// Copy and paste. The two limits of a paste are written differently, year first for an item
// over several dates and month first for a series.
inline constexpr const char* kCannotCopyMultiple = "Cannot copy multiple rows.";
inline constexpr const char* kCannotCopyNoSchedule = "Cannot copy this day that no schedule.";
inline constexpr const char* kKeepRegular = "Do you want to keep regular information?";
inline constexpr const char* kPasteDaysBeyond2099 = "Cannot paste schedules beyond 2099/12/31.";
inline constexpr const char* kPasteSeriesBeyond2099 = "Cannot paste schedules beyond 12/31/2099.";

// The repeat dialog.
inline constexpr const char* kRepeatCaption = "Repeat";
inline constexpr std::array<const char*, 5> kOptions = {"&None", "&Day", "&Week", "&Month",
                                                        "&Year"};
inline constexpr std::array<const char*, 2> kOption2 = {"By day", "By day of week"};
inline constexpr std::array<const char*, 7> kWeekdays = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
inline constexpr std::array<const char*, 5> kOrdinals = {"1st", "2nd", "3rd", "4th", "Last"};
inline constexpr std::array<int, 5> kOrdinalData = {1, 2, 3, 4, 7};
inline constexpr const char* kRepeatEvery = "Repeat every";
// Label4 and Label5 by kind: day, week, month, year.
inline constexpr std::array<const char*, 4> kUnits = {"day(s)", "week(s)", "month(s)", "year(s)"};
inline constexpr std::array<const char*, 4> kMaxTimes = {
    " time(s) - Max 31 times.", " time(s) - Max 52 times.", " time(s) - Max 12 times.",
    " time(s) - Max 10 times."};
inline constexpr const char* kInvalidInput = "Invalid input.";
inline constexpr const char* kNoMoreDay = "No more setting!.";
inline constexpr const char* kNoMoreWeekYear = "No more setting!";
inline constexpr const char* kNoMoreMonth = "No more setting";

// The delete commands. A selection of one line names its item, behind the item's kind (none
// for a plain item): over multiple dates, daily, weekly, monthly, yearly. A selection of several
// lines asks in general, and again for each repeating line, naming its kind the second way.
inline constexpr const char* kDeleteQuestion = "Do you want to delete ";
inline constexpr const char* kDeleteSelected = "Do you want to delete selected data?";
inline constexpr std::array<const char*, 5> kDeleteKinds = {
    "Schedule over multiple dates", "Daily repeat schedule", "Weekly repeat schedule",
    "Monthly repeat schedule", "Yearly repeat schedule"};
inline constexpr std::array<const char*, 5> kDeleteKindsAgain = {
    "Schedule over multiple dates.", "Daily regular schedule.", "Weekly regular schedule.",
    "Monthly regular schedule.", "Yearly regular schedule."};
// The bulk commands: this month and this year (by number), older and newer than a date.
inline constexpr const char* kDeleteMonth = "Delete schedule in ";
inline constexpr const char* kDeleteYear = "Delete schedule data in ";
inline constexpr const char* kDeleteOlder = "Delete the schedule data older than ";
inline constexpr const char* kDeleteNewer = "Delete the Schedule data newer than ";
// Asked once in a bulk command, at its first repeating row or row of an item over several days.
inline constexpr const char* kRepeatsDetected = "Repeat schedules have been detected.";
inline constexpr const char* kLeaveRepeats = "Do you want to leave these schedules?";

// The sentence of a rule.
inline constexpr const char* kNoRepeat = " No Repeat ";
inline constexpr const char* kRepeatsEvery = " The item repeats every ";
inline constexpr const char* kRepeatsOn = " The item repeats on ";
inline constexpr const char* kEvery = " every ";
inline constexpr const char* kIn = " in ";
inline constexpr const char* kFrom = "from ";
inline constexpr const char* kTo = " to ";

}  // namespace sched::appointment_texts
