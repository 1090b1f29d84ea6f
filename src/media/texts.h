#pragma once

// The texts of the sound preview, of the word lists and of their editor.
namespace sched::media_texts {

inline constexpr const char* kWriteError = "Write error!";
inline constexpr const char* kCannotRunPlayer = "Can not run Sound Player!";
inline constexpr const char* kCannotRunEditor = "Can not run Word List Editor!";

// The word list editor.
inline constexpr const char* kEditorCaption = "Word List Editor";
inline constexpr const char* kWordTooLong =
    "The word is too long.\r\nA word takes at most 22 bytes (a double-byte character takes 2).";
inline constexpr const char* kAskSaveList = "Do you want to save the changes to the word list?";

}  // namespace sched::media_texts
