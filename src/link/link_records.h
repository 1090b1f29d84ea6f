#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/codepage.h"
#include "store/sch_record.h"

namespace sched {

// The two files of the data link hold records of an item a day, each behind a 16-bit count of
// the bytes that follow it. The file going out to the link component (the export form) holds
// each row's dates, end date included, and its title, place and memo; the file coming back (the
// import form) holds no end date and no place, and a 32-bit ParentSubNo. Texts are in the code
// page of the device's files, each behind its 16-bit byte count.

// The bytes of a row's export record: its date and end date, times, identity, rule word,
// private flag, alarm and lead, title, place and memo. A text too long for the record's count
// is cut between characters.
std::vector<std::uint8_t> ExportRecordBytes(const SchRecord& record, CodePage page);
// The bytes of an import record: date, times, identity, rule word, private flag, alarm and
// lead, title and memo.
std::vector<std::uint8_t> ImportRecordBytes(const SchRecord& record, CodePage page);

// The records of a link file, as far as they are whole and sound; `cut` when the file ends
// inside one, or one has a date the calendar lacks or a time outside the day.
struct LinkRecords {
  std::vector<SchRecord> records;
  bool cut = false;
};
LinkRecords ReadExportRecords(std::span<const std::uint8_t> bytes, CodePage page);
LinkRecords ReadImportRecords(std::span<const std::uint8_t> bytes, CodePage page);

}  // namespace sched
