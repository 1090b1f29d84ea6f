// Feeds arbitrary bytes to the CSV import.
//
// The first byte chooses the settings: bit 0 the header row, bit 1 the Japanese code page,
// bit 2 a mapping with a field twice, a column not used and one field missing. The rest is
// the file. Any file must be imported whole or fail with the store holding what was read,
// never crash, hang or grow without bound; the reader's position never goes back nor past the
// file's end; and what was imported survives a save and a load with the same live rows.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "interchange/csv_import.h"
#include "interchange/csv_reader.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

// A row of the default mapping needs at least a date, a comma, a time and a line end, and
// makes at most 31 records.
constexpr std::size_t kShortestRow = 10;
constexpr int kMostDays = 31;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "csv_import_fuzz: %s\n", what);
  __builtin_trap();
}

void CheckReader(std::string_view file, CodePage page) {
  CsvReader reader(file, page);
  std::int64_t last = reader.CsvReadPos();
  try {
    while (reader.CsvReadPos() < reader.CsvFileLength()) {
      const CsvRow row = reader.ReadCsvRow();
      if (reader.CsvReadPos() < last || reader.CsvReadPos() > reader.CsvFileLength()) {
        Fail("the read position went back or past the end");
      }
      last = reader.CsvReadPos();
      if (row.items.empty() && row.atLineEnd) break;
    }
  } catch (const CsvReadFailure&) {
  }
}

}  // namespace
}  // namespace sched

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  if (size == 0) return 0;
  const std::uint8_t options = data[0];
  const std::string_view file(reinterpret_cast<const char*>(data + 1), size - 1);
  CsvSettings csv;
  csv.CsvFirstRowIsHeader = (options & 1) != 0;
  if ((options & 4) != 0) {
    csv.CsvColumns = SplitCsvColumnNames(
        "Title,Title,Not Used,Start Date,Start Time,End Date,End Time,All Day Event,"
        "Alarm On/Off,Alarm Date,Alarm Time,Memo");
  }
  const CodePage page = (options & 2) != 0 ? CodePage::kJapanese : CodePage::kWestern;
  CheckReader(file, page);

  FakeStore maker;
  maker.doc.FileCodePage = page;
  ImportCsvFile({maker.store, maker.progress, maker.clock}, file, csv);
  const auto live = static_cast<int>(LiveRows(maker.doc.Tables).size());
  if (live != maker.doc.Tables.RowCount) Fail("the row count is not the live rows");
  if (static_cast<std::size_t>(live) > (file.size() / kShortestRow + 1) * kMostDays) {
    Fail("more records than the file can hold");
  }
  const std::vector<std::uint8_t> saved = maker.store.BuildScheduleBytes();
  FakeStore reader;
  reader.doc.FileCodePage = page;
  if (!reader.store.LoadSchedule(saved)) Fail("the saved import does not load");
  if (static_cast<int>(LiveRows(reader.doc.Tables).size()) != live)
    Fail("the saved import lost or gained rows");
  return 0;
}
