#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/codepage.h"
#include "platform/clock.h"
#include "store/schedule_store.h"

namespace sched {

// The file that Export hands to the link component: a record for each live row. With `onlyNew`
// (the mark of "Import exported data") only rows whose SubNo has the link bit go out, which no
// SubNo has, so the file stays empty; that test is kept as the device's companion program has
// it. An alarm whose time has passed goes out off, without its lead. Nothing when there is
// nothing to export: an empty schedule, or with `onlyNew` no live row that has not gone over
// the link.
std::optional<std::vector<std::uint8_t>> BuildExportFile(const SchDatCTL& tables, bool onlyNew,
                                                         const DateTime& now, CodePage page);

// How an import merges: the import options' DIPType.
enum class ImportMerge {
  kReplaceAll = 0,     // the rows of the period go first
  kAddAll = 1,         // every record is added
  kReplaceLinked = 2,  // the rows of the period that came over the link go first
};

// The dates an import takes: all when none is given.
struct ImportPeriod {
  std::optional<CivilDate> first;
  std::optional<CivilDate> last;
  bool Holds(const CivilDate& date) const;
};

// True for the national holidays of Japan that the PIM program delivers as appointments: the
// schedule keeps its own holidays, so they stay out.
bool IsPartnerHoliday(const SchRecord& record);

// Merges the records of an import file into the store: the rows the merge replaces go first,
// then every record of the period that is no partner's holiday is added as a row that has gone
// over the link, its alarm with `sound`; the series are checked and today's alarms armed anew.
// Gives the number of records added.
int MergeImportedRecords(ScheduleStore& store, const std::vector<SchRecord>& records,
                         ImportMerge merge, const ImportPeriod& period, const std::string& sound);

}  // namespace sched
