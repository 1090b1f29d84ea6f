#pragma once

// The program's name as its captions and message boxes show it, and the texts that several
// parts of the program show alike.
namespace sched {

inline constexpr const char* kAppTitle = "Scheduler";
inline constexpr const char* kUntitledCaption = "Scheduler - Untitled";

namespace texts {
inline constexpr const char* kDirectoryMissing =
    "Directory does not exist.\r\nPlease install the PC Application again.";
inline constexpr const char* kAskSaveChanges = "Do you want to save the changes?";
inline constexpr const char* kAreYouSure = "Are you sure?";
inline constexpr const char* kCannotModifyMultiple = "Cannot modify multiple rows.";
}  // namespace texts

}  // namespace sched
