#pragma once

#include "core/app_texts.h"

// The shell's own words, as the user reads them.
namespace sched::texts {

inline constexpr const char* kAskConversion = "Do you want to perform a Scheduler file conversion?";
inline constexpr const char* kNotSchedulerFile = "This is not a Scheduler file.";
inline constexpr const char* kCsvNotSaved = "Csv file is not saved.";
inline constexpr const char* kHolidayValueInvalid =
    "Invalid the holiday information file.\r\nPlease setting the holiday information.";
inline constexpr const char* kHolidayFileNotFound =
    "Not found a holiday infomation file.\nNot setting holidays.";

inline constexpr const char* kOpenFilter = "Scheduler Files(*.scl)|*.scl";
inline constexpr const char* kSaveFilter = "Scheduler(*.scl)|*.scl";
inline constexpr const char* kUntitledName = "Untitled";

}  // namespace sched::texts
