#include "link/link_exchange.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

#include "link/link_records.h"
#include "store/series_check.h"
#include "store/stamp.h"

namespace sched {
namespace {

constexpr std::uint32_t kLinkBit = 0x40000000;

bool HasLinkBit(std::int32_t value) {
  return (static_cast<std::uint32_t>(value) & kLinkBit) != 0;
}

template <typename Visit>
void ForEachLiveRow(const SchDatCTL& tables, Visit visit) {
  const auto& list = tables.SchDatList;
  for (int row = 0; !list.IsEmpty() && row < list.Rows(); ++row) {
    if (list.At(row).IsLive()) visit(row, list.At(row));
  }
}

// True when the alarm of the row rings before `now`, compared as date and start time.
bool AlarmPassed(const SchRecord& r, const DateTime& now) {
  return std::make_tuple(r.Year, r.Month, r.Day, r.StartTime) <
         std::make_tuple(now.year, now.month, now.day, now.hour * 60 + now.minute);
}

constexpr std::array<std::string_view, 15> kPartnerHolidays = {
    "元日",       "成人の日",   "建国記念日", "春分の日",     "みどりの日",
    "憲法記念日", "国民の休日", "こどもの日", "海の日",       "敬老の日",
    "秋分の日",   "体育の日",   "文化の日",   "勤労感謝の日", "天皇誕生日"};

}  // namespace

std::optional<std::vector<std::uint8_t>> BuildExportFile(const SchDatCTL& tables, bool onlyNew,
                                                         const DateTime& now, CodePage page) {
  if (tables.RowCount == 0) return std::nullopt;
  bool anyNew = false;
  ForEachLiveRow(tables, [&](int, const SchDatRow& r) { anyNew = anyNew || HasLinkBit(r.Stamp); });
  if (onlyNew && !anyNew) return std::nullopt;
  std::vector<std::uint8_t> file;
  ForEachLiveRow(tables, [&](int at, const SchDatRow& row) {
    if (onlyNew && !HasLinkBit(row.SubNo)) return;
    SchRecord r = RowToRecord(tables.SchDatList, at);
    if (r.AlarmOn != 0 && AlarmPassed(r, now)) r.AlarmOn = r.AlarmLead = 0;
    const std::vector<std::uint8_t> bytes = ExportRecordBytes(r, page);
    file.insert(file.end(), bytes.begin(), bytes.end());
  });
  return file;
}

void ClearLinkBits(SchDatCTL& tables) {
  auto& list = tables.SchDatList;
  for (int row = 0; !list.IsEmpty() && row < list.Rows(); ++row) {
    SchDatRow& r = list.Edit(row);
    if (r.IsLive() && HasLinkBit(r.Stamp)) r.Stamp = ClearLinkBit(r.Stamp);
  }
}

bool ImportPeriod::Holds(const CivilDate& date) const {
  const std::int32_t code = DateCode(date.year, date.month, date.day);
  return (!first || code >= DateCode(first->year, first->month, first->day)) &&
         (!last || code <= DateCode(last->year, last->month, last->day));
}

bool IsPartnerHoliday(const SchRecord& r) {
  if (r.Memo != "場所:日本" || r.RepeatKind != 0 || r.StartTime != -1) return false;
  return std::find(kPartnerHolidays.begin(), kPartnerHolidays.end(), r.Title) !=
             kPartnerHolidays.end() ||
         std::string_view(r.Title).starts_with("振替休日");
}

int MergeImportedRecords(ScheduleStore& store, const std::vector<SchRecord>& records,
                         ImportMerge merge, const ImportPeriod& period, const std::string& sound) {
  SchDatCTL& tables = store.Document().Tables;
  if (merge != ImportMerge::kAddAll) {
    std::vector<int> gone;
    ForEachLiveRow(tables, [&](int row, const SchDatRow& r) {
      const bool linked = IsLinkDone(r.Stamp) == -1;
      if ((merge == ImportMerge::kReplaceAll || linked) && period.Holds({r.Year, r.Month, r.Day})) {
        gone.push_back(row);
      }
    });
    for (int row : gone) store.RemoveRow(row);
  }
  int added = 0;
  for (SchRecord r : records) {
    if (!period.Holds({r.Year, r.Month, r.Day}) || IsPartnerHoliday(r)) continue;
    r.Prev = r.Next = -1;
    r.Stamp = SetTopBit(ClearLinkBit(r.Stamp));
    r.Title = TabToBlank(r.Title);
    r.Memo = TabToBlank(r.Memo);
    r.AlarmSound = r.AlarmOn != 0 ? sound : "";
    r.VarLen = VarLenOf(r, store.Document().FileCodePage);
    store.InsertRecord(r);
    ++added;
  }
  CheckSeries(tables);
  store.Alarms().SortTodayAlarms();
  store.Alarms().ArmNextAlarm();
  return added;
}

}  // namespace sched
