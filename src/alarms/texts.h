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

}  // namespace sched::alarm_texts
