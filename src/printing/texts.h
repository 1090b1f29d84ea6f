#pragma once

// The texts of printing: its dialogs, its message and what it prints.
namespace sched::print_texts {

inline constexpr const char* kSelectPrintDateCaption = "Select Print Date";
inline constexpr const char* kStartAfterEnd = "The start date is after the end date.";
inline constexpr const char* kDlgPrintingCaption = "Printing...";
inline constexpr const char* kNowPrinting = "Now printing...";
inline constexpr const char* kNoRecord = "There is no record to print.";
inline constexpr const char* kNoRecordTitle = "Warning:";
inline constexpr const char* kWriteError = "Write error!";

// The page header: "File Name [ NAME ]", the name "Untitled" for a schedule without a file.
inline constexpr const char* kFileNameOpen = "File Name [ ";
inline constexpr const char* kFileNameClose = " ]";
inline constexpr const char* kUntitled = "Untitled";

inline constexpr const char* kTitleLabel = "Title";
inline constexpr const char* kPlaceLabel = "Place";
inline constexpr const char* kMemoLabel = "Memo";
inline constexpr const char* kAllday = " Allday ";

// The samples whose printed widths make the columns.
inline constexpr const char* kDateSample = "12/12";
inline constexpr const char* kTimeSample = "12:12pm-12:12pm";
inline constexpr const char* kLabelSample = "Company";
inline constexpr const char* kGapSample = "9999";

}  // namespace sched::print_texts
