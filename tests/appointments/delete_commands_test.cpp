#include "appointments/delete_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>

#include "core/app_texts.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "store/row_order.h"
#include "tests/support/case_file.h"
#include "tests/support/date_text.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

// The schedule of the case file: items, series and the marks of single days.
void BuildSchedule(FakeStore& s) {
  for (const CaseRow& c : ReadCases("appointments/delete_schedule.txt", 7, 15)) {
    const CivilDate date = c.Date(1);
    if (c[0] == "holiday" || c[0] == "workday") {
      AncYYRow& year = s.doc.Tables.AncYY.Edit(s.store.FindOrAddYear(date.year));
      auto& masks = c[0] == "holiday" ? year.HolidayOn : year.HolidayOff;
      masks[static_cast<std::size_t>(date.month - 1)] |= 1 << (date.day - 1);
      continue;
    }
    const int start = c.Int(6);
    SchRecord item =
        MakeItem(date.year, date.month, date.day, start, start < 0 ? -1 : start + 60, c[2]);
    item.RepeatKind = static_cast<std::int16_t>(c.Hex(5));
    if (item.RepeatKind == 0) {
      s.store.InsertRecord(item);
    } else {
      InsertSeries(s.store, item, c.Int(3), c.Int(4));
    }
    if (c[0] == "removed") s.store.DeleteItem(item);
  }
  s.alarms.calls.clear();
}

// The live rows by date: title@date, ">end" when the row ends later, "*" while it repeats.
std::string RowsText(const SchDatCTL& t) {
  std::string text;
  for (int row : LiveRowsInDateOrder(t)) {
    const SchDatRow& r = t.SchDatList.At(row);
    text += (text.empty() ? "" : " ") + std::string(t.SchDatList.Texts(r).Title) + "@" +
            DateText(DateOfCode(r.StartCode()));
    if (r.EndCode() != r.StartCode()) text += ">" + DateText(DateOfCode(r.EndCode()));
    if (r.RepeatKind != 0) text += "*";
  }
  return text;
}

// The days marked as holidays (+) and workdays (-), by date.
std::string MarksText(const SchDatCTL& t) {
  std::map<int, const AncYYRow*> years;
  for (int y = 0; y < t.YearCount; ++y) years[t.AncYY.At(y).Year] = &t.AncYY.At(y);
  std::string text;
  for (const auto& [year, row] : years) {
    for (std::size_t m = 0; m < 12; ++m) {
      for (int day = 1; day <= 31; ++day) {
        const std::int32_t code = DateCode(year, static_cast<int>(m) + 1, day);
        if (row->HolidayOn[m] & 1 << (day - 1)) text += " +" + DateText(DateOfCode(code));
        if (row->HolidayOff[m] & 1 << (day - 1)) text += " -" + DateText(DateOfCode(code));
      }
    }
  }
  return text.empty() ? text : text.substr(1);
}

// The rows of the selected lines, each given as title@date.
std::vector<int> SelectedRows(const SchDatCTL& t, const CaseRow& c) {
  std::vector<int> rows;
  std::stringstream lines(c[1]);
  for (std::string line; std::getline(lines, line, ',');) {
    const std::vector<int> live = LiveRowsInDateOrder(t);
    const auto found = std::find_if(live.begin(), live.end(), [&](int row) {
      const SchDatRow& r = t.SchDatList.At(row);
      return std::string(t.SchDatList.Texts(r).Title) + "@" + DateText(DateOfCode(r.StartCode())) ==
             line;
    });
    EXPECT_NE(found, live.end()) << c.where << ": no line " << line;
    if (found != live.end()) rows.push_back(*found);
  }
  return rows;
}

bool RunCommand(DeleteCommands& commands, const SchDatCTL& t, const CaseRow& c) {
  if (c[0] == "select") return commands.DeleteSelection(SelectedRows(t, c));
  if (c[0] == "year") return commands.DelYear_Click(c.Int(1));
  if (c[0] == "month") {
    const CivilDate first = CaseRow{{c[1] + "-01"}, c.where}.Date(0);
    return commands.DelMonth_Click(first.year, first.month);
  }
  if (c[0] == "older") return commands.DelBefore_Click(c.Date(1));
  if (c[0] == "newer") return commands.DelAfter_Click(c.Date(1));
  ADD_FAILURE() << c.where << ": no command " << c[0];
  return false;
}

TEST(DeleteCommands, EachCommandAsksItsQuestionsAndLeavesItsRowsAndMarks) {
  for (const CaseRow& c : ReadCases("appointments/deletions.txt", 7, 25)) {
    FakeStore s;
    BuildSchedule(s);
    const SchDatCTL& t = s.doc.Tables;
    const std::string rowsBefore = RowsText(t);
    const std::string marksBefore = MarksText(t);
    const std::vector<int> liveBefore = LiveRowsInDateOrder(t);
    FakeMessages messages;
    std::stringstream answers(c[2]);
    int answerCount = 0;
    for (std::string answer; answers >> answer; ++answerCount) {
      messages.QueueAnswer(answer == "yes" ? MsgAnswer::Yes : MsgAnswer::No);
    }
    FakeDateFormatter dates;
    DeleteCommands commands(s.store, messages, dates);

    EXPECT_EQ(RunCommand(commands, t, c), c.YesNo(4)) << c.where;

    std::string questions;
    for (const MessageRequest& m : messages.Shown()) {
      questions += (questions.empty() ? "" : " | ") + m.text;
      EXPECT_EQ(m.title, kAppTitle) << c.where;
      EXPECT_EQ(m.icon, MsgIcon::Exclamation) << c.where;
      EXPECT_EQ(m.buttons, MsgButtons::YesNo) << c.where;
    }
    EXPECT_EQ(questions, testing::Unescaped(c[3])) << c.where;
    EXPECT_EQ(static_cast<int>(messages.Shown().size()), answerCount) << c.where;
    EXPECT_EQ(RowsText(t), c[5] == "unchanged" ? rowsBefore : c[5]) << c.where;
    EXPECT_EQ(MarksText(t), c[6] == "unchanged" ? marksBefore : c[6]) << c.where;

    // Every row that went was counted off once and left today's alarm list once.
    const std::vector<int> liveAfter = LiveRowsInDateOrder(t);
    EXPECT_EQ(t.RowCount, static_cast<int>(liveAfter.size())) << c.where;
    std::vector<std::string> removals;
    for (int row : liveBefore) {
      if (std::find(liveAfter.begin(), liveAfter.end(), row) == liveAfter.end()) {
        removals.push_back("RemoveAlarmOfRecord " + std::to_string(row));
      }
    }
    std::sort(s.alarms.calls.begin(), s.alarms.calls.end());
    std::sort(removals.begin(), removals.end());
    EXPECT_EQ(s.alarms.calls, removals) << c.where;
  }
}

}  // namespace
}  // namespace sched
