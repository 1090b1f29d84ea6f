#include "store/row_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>
#include <vector>

#include "store/chains.h"

namespace sched {

std::vector<int> LiveRowsInDateOrder(const SchDatCTL& ctl) {
  // (year, month, month row), sorted by date; the tables keep years and months in order of use.
  std::vector<std::tuple<int, int, int>> months;
  for (int y = 0; y < ctl.YearCount; ++y) {
    const AncYYRow& year = ctl.AncYY.At(y);
    for (int row : MonthChain(ctl.AncMM, year.FirstMonth)) {
      months.emplace_back(year.Year, ctl.AncMM.At(row).Month, row);
    }
  }
  std::stable_sort(months.begin(), months.end(), [](const auto& a, const auto& b) {
    return std::tie(std::get<0>(a), std::get<1>(a)) < std::tie(std::get<0>(b), std::get<1>(b));
  });
  std::vector<int> rows;
  const auto& list = ctl.SchDatList;
  for (const auto& month : months) {
    for (std::int32_t head : ctl.AncMM.At(std::get<2>(month)).DayHead) {
      for (int row : DayChain(list, head)) {
        if (list.At(row).IsLive()) rows.push_back(row);
      }
    }
  }
  return rows;
}

int SortDayChain(SchDatCTL& ctl, int first, int count) {
  auto& list = ctl.SchDatList;
  std::vector<int> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), first);
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return list.At(a).StartTime < list.At(b).StartTime; });
  for (std::size_t i = 0; i < order.size(); ++i) {
    list.Edit(order[i]).Next = i + 1 < order.size() ? order[i + 1] : -1;
  }
  return order.front();
}

}  // namespace sched
