#include "find/find_model.h"

#include <gtest/gtest.h>

#include "appointments/repeat_rule.h"
#include "find/find_line.h"
#include "tests/support/case_file.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

std::int32_t CodeOr(const std::string& text, std::int32_t otherwise) {
  if (text.empty()) return otherwise;
  const CivilDate d = testing::CaseRow{{text}, text}.Date(0);
  return DateCode(d.year, d.month, d.day);
}

// The results as the table writes them.
std::string Shown(const FindModel& model) {
  std::string shown;
  for (const FindResult& result : model.Results()) {
    const FindLine line = DescribeResult(model, result);
    char date[8];
    std::snprintf(date, sizeof date, "%02d/%02d", line.date.month % 100, line.date.day % 100);
    shown += (shown.empty() ? "" : " | ") + std::string(date) + " " + line.title + " [" +
             FoundText(line) + "]" + (line.repeats.empty() ? "" : " " + line.repeats);
  }
  return shown;
}

// A schedule of 2026: a café, a dentist (and a deleted one), a stand-up at a later hour on the
// café's day, a series and an item over three days.
struct Schedule : FakeStore {
  FindModel model{doc.Tables};

  Schedule() {
    SchRecord cafe = MakeItem(2026, 3, 10, 9 * 60, 10 * 60, "Café Central");
    cafe.Place = "Wien";
    cafe.Memo = "bring the card\r\nask about Crème brûlée";
    store.InsertRecord(cafe);
    store.InsertRecord(MakeItem(2026, 3, 10, 11 * 60, 11 * 60 + 15, "Standup"));
    SchRecord dentist = MakeItem(2026, 2, 5, 8 * 60, 9 * 60, "Dentist");
    dentist.Place = "Dr. Taft, Hauptstraße 4";
    store.InsertRecord(dentist);
    const SchRecord old = MakeItem(2025, 6, 1, 8 * 60, 9 * 60, "Dentist, old");
    store.InsertRecord(old);
    store.DeleteItem(old);
    SchRecord team = MakeItem(2026, 11, 24, 9 * 60, 10 * 60, "Team meeting");
    team.RepeatKind = static_cast<std::int16_t>(BuildRepeatWord(kOptionWeekly, {1, 2}));
    InsertSeries(store, team, 5, 14);
    InsertSpan(store, {2026, 7, 1}, 3, "Trip to Lyon", ItemStamp(2026, 7, 1, 0, 0, "trip"));
    // The trip's three rows take a place.
    SchDatTable& list = doc.Tables.SchDatList;
    for (int row = list.Rows() - 3; row < list.Rows(); ++row)
      list.SetTexts(list.Edit(row), {"Trip to Lyon", "ØRESUND Ærodrome", "", ""});
  }
};

TEST(FindModel, FindsWhatTheTableSays) {
  Schedule s;
  for (const testing::CaseRow& c : testing::ReadCases("find/searches.txt", 4, 15)) {
    s.model.Search({c[0], CodeOr(c[1], FindQuery{}.fromCode), CodeOr(c[2], FindQuery{}.toCode)});
    EXPECT_EQ(Shown(s.model), c[3]) << c.where;
  }
}

// The results follow the schedule as it changes: added rows, deleted items, rows that take
// other texts, and a schedule loaded anew.
TEST(FindModel, FollowsTheChangesOfTheSchedule) {
  Schedule s;
  s.model.Search({"dentist"});
  SchRecord again = MakeItem(2026, 9, 1, 8 * 60, 9 * 60, "DENTIST again");
  s.store.InsertRecord(again);
  EXPECT_EQ(s.model.Refresh().size(), 2u);
  s.store.DeleteItem(again);
  EXPECT_EQ(s.model.Refresh().size(), 1u);

  // A row that takes other texts, as an undone change gives it back its old ones.
  const int row = s.model.Results().front().row;
  SchDatTable& list = s.doc.Tables.SchDatList;
  list.SetTexts(list.Edit(row), {"Dentiste", "Paris", "", ""});
  s.model.Search({"paris"});
  ASSERT_EQ(s.model.Results().size(), 1u);
  EXPECT_EQ(s.model.Results().front().row, row);
  EXPECT_EQ(s.model.Search({"hauptstrasse"}).size(), 0u);

  s.store.ClearIndex();
  s.store.InsertRecord(MakeItem(2030, 1, 1, 60, 120, "Paris trip"));
  ASSERT_EQ(s.model.Search({"paris"}).size(), 1u);
  EXPECT_EQ(s.model.Results().front().dateCode, 20300101);
}

}  // namespace
}  // namespace sched
