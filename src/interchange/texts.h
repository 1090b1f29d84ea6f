#pragma once

// The words of the CSV commands and of the mapping dialog, as the user reads them.
namespace sched::texts {

inline constexpr const char* kNotCsvFile = "This is not a CSV file.";
inline constexpr const char* kNoCsvItems = "No CSV items are specified.";
inline constexpr const char* kImportFilter = "CSV(Comma delimited) Files(*.csv)|*.csv";
inline constexpr const char* kExportFilter = "CSV(Comma delimited)(*.csv)|*.csv";
inline constexpr const char* kCsvTitlePrefix = "Scheduler- ";
inline constexpr const char* kTakeHeaderMapping =
    "The first row names its columns. Do you want to take the CSV items from it?";

}  // namespace sched::texts
