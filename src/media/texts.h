#pragma once

// The texts of the sound preview and of the word lists.
namespace sched::media_texts {

inline constexpr const char* kWriteError = "Write error!";
inline constexpr const char* kCannotRunPlayer = "Can not run Sound Player!";

}  // namespace sched::media_texts
