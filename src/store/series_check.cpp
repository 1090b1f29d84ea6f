#include "store/series_check.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "core/key_table.h"
#include "core/radix_sort.h"

namespace sched {

void CheckSeries(SchDatCTL& ctl) {
  if (ctl.RowCount <= 0) return;
  auto& list = ctl.SchDatList;
  const auto inSeries = [](const SchDatRow& row) { return row.RepeatKind != 0 && row.IsLive(); };
  // The series keys of the live rows of series, sorted: a key that stands alone belongs to a
  // series of one row, which is a plain item.
  std::vector<std::uint64_t> keys;
  keys.reserve(static_cast<std::size_t>(list.Rows()));
  for (int i = 0; i < list.Rows(); ++i) {
    const SchDatRow& row = list.At(i);
    if (inSeries(row)) keys.push_back(row.Series().Packed());
  }
  RadixSort(keys, [](std::uint64_t key) { return key; });
  std::vector<std::uint64_t> single;
  for (std::size_t i = 0; i < keys.size();) {
    std::size_t end = i + 1;
    while (end < keys.size() && keys[end] == keys[i]) ++end;
    if (end - i == 1) single.push_back(keys[i]);
    i = end;
  }
  if (single.empty()) return;
  const KeyTable singles(std::move(single));
  for (int i = 0; i < list.Rows(); ++i) {
    const SchDatRow& row = list.At(i);
    if (inSeries(row) && singles.Find(row.Series().Packed()) != -1) list.Edit(i).RepeatKind = 0;
  }
}

}  // namespace sched
