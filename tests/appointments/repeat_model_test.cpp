#include "appointments/repeat_model.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/date_text.h"
#include "tests/support/key_names.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::YesNo;
using Field = RepeatNumberField;

// The repeat dialog over its working values.
struct Dialog {
  RepeatWork work;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  RepeatModel model{work, messages, dates};

  // Opens the dialog of an item that has the rule `word`, `count` times, starting on `start`.
  void OpenRule(std::uint16_t word, const CivilDate& start, int count) {
    work.WorkRepeatKind = word;
    work.Decode(word);
    work.RepeatFree = 0;
    work.RepeatCount = static_cast<std::int16_t>(count);
    model.Open(start);
  }
};

Field FieldOf(const CaseRow& row) {
  EXPECT_TRUE(row[1] == "count" || row[1] == "interval") << row.where;
  return row[1] == "count" ? Field::ImNumber1 : Field::ImNumber2;
}

std::string Range(const RepeatNumber& n) {
  return std::to_string(n.value) + " " + std::to_string(n.min) + ".." + std::to_string(n.max);
}

// A click on an option works out afresh whether its kind fits, whatever was noted before.
TEST(RepeatModel, EachKindFitsAsOftenAsTheDaysTo2099Allow) {
  for (const CaseRow& row : ReadCases("appointments/repeat-fits.txt", 4, 15)) {
    Dialog d;
    d.model.Open(row.Date(0));
    const int option = row.Int(1);
    const bool fits = row[2] != "-";
    EXPECT_EQ(d.model.Option1Enabled(option), fits) << row.where;
    d.work.CanOption(option) = !fits;
    d.model.Option1_Click(option);
    EXPECT_EQ(d.work.CanOption(option), fits) << row.where;
    EXPECT_EQ(d.model.CurrentOption(), fits ? option : kOptionNone) << row.where;
    EXPECT_EQ(d.model.Controls().Frame1Visible, fits) << row.where;
    if (fits) {
      EXPECT_EQ(Range(d.model.Controls().ImNumber1), "2 " + row[2]) << row.where;
      EXPECT_EQ(Range(d.model.Controls().ImNumber2), "1 " + row[3]) << row.where;
    } else {
      EXPECT_EQ(d.model.Controls().Label2, " No Repeat ") << row.where;
    }
  }
}

TEST(RepeatModel, ARuleThatNoLongerFitsSaysSoAndOpensAtNone) {
  for (const CaseRow& row : ReadCases("appointments/repeat-no-more.txt", 3, 6)) {
    Dialog d;
    d.OpenRule(row.Hex(0), row.Date(1), 3);
    EXPECT_EQ(testing::NewMessageLines(d.messages, d.seen),
              "[Scheduler, Exclamation, Ok] " + row[2])
        << row.where;
    EXPECT_EQ(d.model.CurrentOption(), kOptionNone) << row.where;
    EXPECT_EQ(d.model.Controls().Option1, kOptionNone) << row.where;
    EXPECT_FALSE(d.model.Controls().Frame1Visible) << row.where;
    EXPECT_EQ(d.model.Controls().Label2, " No Repeat ") << row.where;
    EXPECT_EQ(d.work.RepeatCount, 3) << row.where;
  }
}

// The state and the line of a step, short for the many steps and looks below.
using S = Dialog&;
using R = const CaseRow&;

testing::Trace<Dialog> RepeatDialogTrace() {
  testing::Trace<Dialog> t;
  testing::AddMessageWords(t);
  const auto n = [](int value) { return std::to_string(value); };
  t.steps["new"] = [](S d, R row) { d.model.Open(row.Date(1)); };
  t.steps["rule"] = [](S d, R row) {
    d.work.RepeatStartCode = row[4].empty() ? 0 : row.Int(4);
    d.work.RepeatLastCode = row[5].empty() ? -1 : row.Int(5);
    d.OpenRule(row.Hex(1), row.Date(2), row.Int(3));
  };
  t.steps["option1"] = [](S d, R row) { d.model.Option1_Click(row.Int(1)); };
  t.steps["option2"] = [](S d, R row) { d.model.Option2_Click(row.Int(1)); };
  t.steps["combo1"] = [](S d, R row) { d.model.Combo1_Click(row.Int(1)); };
  t.steps["combo2"] = [](S d, R row) { d.model.Combo2_Click(row.Int(1)); };
  t.steps["type"] = [](S d, R row) { d.model.ImNumber_Change(FieldOf(row), row.Int(2)); };
  t.steps["key"] = [](S d, R row) {
    EXPECT_EQ(d.model.ImNumber_KeyDown(FieldOf(row), testing::KeyNamed(row[2])), row.YesNo(3))
        << row.where;
  };
  t.steps["spin"] = [](S d, R row) { d.model.UpDown_Click(FieldOf(row), row.Int(2)); };
  t.steps["ok"] = [](S d, R row) {
    EXPECT_EQ(d.model.OKButton_Click(), row.YesNo(1)) << row.where << ": whether OK closes";
  };
  t.steps["cancel"] = [](S d, R) { d.model.CancelButton_Click(); };
  t.steps["unload"] = [](S d, R) { d.model.Form_Unload(); };
  t.steps["set-code"] = [](S d, R row) {
    d.work.RepeatCode = static_cast<std::int16_t>(row.Int(1));
  };

  // What the dialog shows.
  t.looks["option"] = [n](S d, auto&) { return n(d.model.CurrentOption()); };
  t.looks["option1"] = [n](S d, auto&) { return n(d.model.Controls().Option1); };
  t.looks["enabled"] = [n](S d, auto&) {
    std::string options;
    for (int option = kOptionNone; option <= kOptionYearly; ++option) {
      if (d.model.Option1Enabled(option)) options += (options.empty() ? "" : " ") + n(option);
    }
    return options;
  };
  t.looks["frame"] = [](S d, auto&) { return YesNo(d.model.Controls().Frame1Visible); };
  t.looks["option2"] = [n](S d, auto&) { return n(d.model.Controls().Option2); };
  t.looks["option2-shown"] = [](S d, auto&) { return YesNo(d.model.Controls().Option2Visible); };
  t.looks["combos"] = [](S d, auto&) { return YesNo(d.model.Controls().CombosEnabled); };
  t.looks["combo1"] = [n](S d, auto&) { return n(d.model.Controls().Combo1); };
  t.looks["combo2"] = [n](S d, auto&) { return n(d.model.Controls().Combo2); };
  // A number box as "value min..max"; ".value" alone.
  t.looks["count"] = [](S d, auto&) { return Range(d.model.Controls().ImNumber1); };
  t.looks["interval"] = [](S d, auto&) { return Range(d.model.Controls().ImNumber2); };
  t.looks["count.value"] = [n](S d, auto&) { return n(d.model.Controls().ImNumber1.value); };
  t.looks["interval.value"] = [n](S d, auto&) { return n(d.model.Controls().ImNumber2.value); };
  t.looks["unit"] = [](S d, auto&) { return d.model.Controls().Label4; };
  t.looks["times"] = [](S d, auto&) { return d.model.Controls().Label5; };
  t.looks["first"] = [](S d, auto&) { return d.model.Controls().Label6[0]; };
  t.looks["last"] = [](S d, auto&) { return d.model.Controls().Label6[1]; };
  t.looks["sentence"] = [](S d, auto&) { return d.model.Controls().Label2; };
  t.looks["loading"] = [](S d, auto&) { return YesNo(d.model.Loading()); };
  // The first occurrence, and the first occurrence noted for each kind.
  t.looks["start"] = [](S d, auto&) { return DateText(d.model.StartDate()); };
  t.looks["starts"] = [](S d, auto&) {
    return testing::Join(d.model.Dates().ImDate2, " ",
                         [](const CivilDate& date) { return DateText(date); });
  };
  // The box that asks for the focus, once: "count", "interval" or "none".
  t.looks["focus"] = [](S d, auto&) -> std::string {
    const std::optional<Field> focus = d.model.TakeFocus();
    return !focus ? "none" : *focus == Field::ImNumber1 ? "count" : "interval";
  };
  t.looks["confirmed"] = [](S d, auto&) { return YesNo(d.model.Confirmed()); };
  t.looks["saved"] = [n](S d, auto&) {
    return n(d.model.SavedCount()) + " " + n(d.model.SavedCode());
  };

  // The working values the dialog leaves for the edit dialog: all of the rule as "word code
  // option free count, step stepUsed: startCode to lastCode (last date)", or a part of it.
  t.looks["rule"] = [n](S d, auto&) {
    const RepeatWork& w = d.work;
    return testing::HexWord(w.WorkRepeatKind) + " " + n(w.RepeatCode) + " " + n(w.RepeatOption) +
           " " + n(w.RepeatFree) + " " + n(w.RepeatCount) + ", " + n(w.RepeatStep) + " " +
           n(w.RepeatStepUsed) + ": " + n(w.RepeatStartCode) + " to " + n(w.RepeatLastCode) + " (" +
           DateText({w.RepeatLastYear, w.RepeatLastMonth, w.RepeatLastDay}) + ")";
  };
  t.looks["rule.word"] = [](S d, auto&) { return testing::HexWord(d.work.WorkRepeatKind); };
  t.looks["rule.code"] = [n](S d, auto&) { return n(d.work.RepeatCode); };
  t.looks["rule.free"] = [n](S d, auto&) { return n(d.work.RepeatFree); };
  t.looks["rule.count"] = [n](S d, auto&) { return n(d.work.RepeatCount); };
  t.looks["rule.can"] = [](S d, auto& i) { return YesNo(d.work.CanOption(stoi(i))); };
  return t;
}

TEST(RepeatModel, FollowsTheTraces) {
  RepeatDialogTrace().Run("appointments/repeat-dialog.txt", 6, 150);
}

}  // namespace
}  // namespace sched
