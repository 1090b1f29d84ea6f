#include "store/series_check.h"

namespace sched {

void CheckSeries(SchDatCTL& ctl) {
  if (ctl.RowCount <= 0) return;
  auto& list = ctl.SchDatList;
  for (int i = 0; i < list.Rows(); ++i) {
    SchDatRow& row = list.At(i);
    if (row.RepeatKind == 0 || row.Deleted != kLive) {
      if (row.Deleted == kSeriesMark) row.Deleted = kLive;
      continue;
    }
    bool found = false;
    for (int j : SeriesRows(ctl, row.Series())) {
      SchDatRow& other = list.At(j);
      if (j > i && other.Deleted == kLive && other.RepeatKind != 0) {
        other.Deleted = kSeriesMark;
        found = true;
      }
    }
    // A series of one is a plain item.
    if (!found) row.RepeatKind = 0;
  }
}

}  // namespace sched
