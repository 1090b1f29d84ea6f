#pragma once

#include <string>

#include "tests/support/date_text.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched::testing {

// Looks at the live rows of a schedule, in the order written, for a trace whose `tables` gives
// the state's tables: "rows", and for row N "row.date:N" (the first and last date),
// "row.times:N", "row.title:N", "row.place:N", "row.memo:N", "row.private:N", "row.alarm:N"
// (its lead and sound, or "off"), "row.kind:N" and "row.subno:N". Every look of a row, these
// and those of the trace made before, gives for "*" that of each live row, joined by " | ".
template <class State, class Tables>
void AddRowLooks(Trace<State>& t, Tables tables) {
  const auto row = [tables](State& s, const std::string& index) {
    const std::vector<RowWithTexts> rows = LiveRows(tables(s));
    const auto i = static_cast<std::size_t>(std::stoi(index));
    EXPECT_LT(i, rows.size()) << "no live row " << index;
    return i < rows.size() ? rows[i] : RowWithTexts{};
  };
  const auto n = [](int value) { return std::to_string(value); };
  t.looks["rows"] = [tables](State& s, auto&) {
    return std::to_string(LiveRows(tables(s)).size());
  };
  t.looks["row.date"] = [row](State& s, auto& i) {
    const RowWithTexts r = row(s, i);
    return DateText(r.Year, r.Month, r.Day) + " " + DateText(r.EndYear, r.EndMonth, r.EndDay);
  };
  t.looks["row.times"] = [row, n](State& s, auto& i) {
    return n(row(s, i).StartTime) + " " + n(row(s, i).EndTime);
  };
  t.looks["row.title"] = [row](State& s, auto& i) { return row(s, i).Title; };
  t.looks["row.place"] = [row](State& s, auto& i) { return row(s, i).Place; };
  t.looks["row.memo"] = [row](State& s, auto& i) { return row(s, i).Memo; };
  t.looks["row.private"] = [row, n](State& s, auto& i) { return n(row(s, i).Private); };
  t.looks["row.alarm"] = [row, n](State& s, auto& i) {
    const RowWithTexts r = row(s, i);
    return r.AlarmOn == 0 ? std::string("off") : n(r.AlarmLead) + " " + r.AlarmSound;
  };
  t.looks["row.kind"] = [row](State& s, auto& i) {
    return HexWord(static_cast<std::uint16_t>(row(s, i).RepeatKind));
  };
  t.looks["row.subno"] = [row, n](State& s, auto& i) { return n(row(s, i).SubNo); };
  for (auto& [name, look] : t.looks) {
    if (!name.starts_with("row.")) continue;
    look = [tables, one = look](State& s, const std::string& i) {
      if (i != "*") return one(s, i);
      std::string all;
      for (std::size_t r = 0; r < LiveRows(tables(s)).size(); ++r) {
        all += (all.empty() ? "" : " | ") + one(s, std::to_string(r));
      }
      return all;
    };
  }
}

}  // namespace sched::testing
