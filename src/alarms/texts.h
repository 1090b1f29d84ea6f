#pragma once

namespace sched::alarm_texts {

// The notice window of a ringing alarm.
inline constexpr const char* kNoticeCaption = "Scheduler - Matching with Schedule alarm";
inline constexpr const char* kTitleLabel = "Title";
inline constexpr const char* kDateLabel = "Date";
inline constexpr const char* kTimeLabel = "Time";
inline constexpr const char* kPlaceLabel = "Place";
inline constexpr const char* kMemoLabel = "Memo";
inline constexpr const char* kCloseButton = "OK";

// Above the title of an alarm that went by while the program could not ring it, before its
// time "9:00 AM".
inline constexpr const char* kMissedAt = "Missed at ";

// Snooze: the choices of how long, the first chosen, and the button.
struct SnoozeChoice {
  const char* text;
  int minutes;
};
inline constexpr SnoozeChoice kSnoozeChoices[] = {
    {"5 minutes", 5}, {"10 minutes", 10}, {"15 minutes", 15},    {"30 minutes", 30},
    {"1 hour", 60},   {"2 hours", 120},   {"Tomorrow", 24 * 60},
};
inline constexpr const char* kSnoozeButton = "&Snooze";

// The buttons of the desktop's notification: their keys and labels.
inline constexpr const char* kSnoozeAction = "snooze";
inline constexpr const char* kSnoozeActionLabel = "Snooze 5 minutes";
inline constexpr int kSnoozeActionMinutes = 5;
inline constexpr const char* kDismissAction = "dismiss";
inline constexpr const char* kDismissActionLabel = "Dismiss";

}  // namespace sched::alarm_texts
