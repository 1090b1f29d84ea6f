#include "store/series_check.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "core/radix_sort.h"

namespace sched {

void CheckSeries(SchDatCTL& ctl) {
  if (ctl.RowCount <= 0) return;
  auto& list = ctl.SchDatList;
  // The live rows of series, grouped by series; in a group, rows keep their order.
  std::vector<std::pair<std::uint64_t, int>> members;
  for (int i = 0; i < list.Rows(); ++i) {
    const SchDatRow& row = list.At(i);
    if (row.RepeatKind != 0 && row.IsLive()) members.emplace_back(row.Series().Packed(), i);
  }
  RadixSort(members, [](const auto& member) { return member.first; });
  for (std::size_t i = 0; i < members.size();) {
    std::size_t end = i + 1;
    while (end < members.size() && members[end].first == members[i].first) ++end;
    // A series of one is a plain item.
    if (end - i == 1) list.Edit(members[i].second).RepeatKind = 0;
    i = end;
  }
}

}  // namespace sched
