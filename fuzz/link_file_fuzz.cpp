// Feeds arbitrary bytes to the data link's readers: as the import file the link component
// fills, merged into a schedule as an import does, and as the export file the component reads,
// put into a calendar as the component does. Inputs of odd size have their texts in the
// Japanese code page. Nothing may crash or hang; what is merged must save and load again, and
// the calendar made must be one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/ics_export.h"
#include "link/link_exchange.h"
#include "link/link_records.h"
#include "tests/support/test_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  const std::vector<std::uint8_t> bytes(data, data + size);
  const CodePage page = size % 2 == 0 ? CodePage::kWestern : CodePage::kJapanese;

  FakeStore s;
  s.doc.FileCodePage = page;
  const LinkRecords imported = ReadImportRecords(bytes, page);
  MergeImportedRecords(s.store, imported.records, ImportMerge::kAddAll, {}, "SCHALARM");
  FakeStore again;
  again.doc.FileCodePage = page;
  if (!again.store.LoadSchedule(s.store.BuildScheduleBytes())) std::abort();

  const LinkRecords exported = ReadExportRecords(bytes, page);
  if (!MergeIntoCalendar(exported.records, "", {2026, 11, 25, 12, 0, 0})) std::abort();
  return 0;
}
