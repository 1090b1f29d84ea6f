// Feeds arbitrary text to the data link's reader of iCalendar files. It may refuse the text or
// give records, never crash or hang; every record has a date of the calendar and times of the
// day, and goes through the import file and back unchanged in number.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "link/ics_import.h"
#include "link/link_records.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto records =
      RecordsOfCalendar(text, {2026, 11, 25}, static_cast<std::int32_t>(0xC0000001));
  if (!records) return 0;
  std::vector<std::uint8_t> file;
  for (const SchRecord& r : *records) {
    if (!IsValidDate(r.Year, r.Month, r.Day) || r.StartTime < -1 || r.StartTime >= 1440 ||
        r.EndTime < -1 || r.EndTime >= 1440 || r.AlarmLead < 0 || r.AlarmLead > 999) {
      std::abort();
    }
    const std::vector<std::uint8_t> bytes = ImportRecordBytes(r, CodePage::kWestern);
    file.insert(file.end(), bytes.begin(), bytes.end());
  }
  if (ReadImportRecords(file, CodePage::kWestern).records.size() != records->size()) std::abort();
  return 0;
}
