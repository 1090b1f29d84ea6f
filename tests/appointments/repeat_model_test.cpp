#include "appointments/repeat_model.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "platform/key_codes.h"
#include "tests/support/date_text.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;
using Field = RepeatNumberField;

// The repeat dialog over its working values, as tests/data/appointments/repeat-dialog.txt
// drives it.
struct Dialog {
  RepeatWork work;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  RepeatModel model{work, messages, dates};

  void End() {
    EXPECT_EQ(testing::NewMessageLines(messages, seen), "") << "messages not looked at";
  }
};

Field FieldOf(const CaseRow& row) {
  EXPECT_TRUE(row[1] == "count" || row[1] == "interval") << row.where;
  return row[1] == "count" ? Field::ImNumber1 : Field::ImNumber2;
}

std::string Range(const RepeatNumber& n) {
  return std::to_string(n.value) + " " + std::to_string(n.min) + ".." + std::to_string(n.max);
}

std::string Hex(std::uint16_t word) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04X", word);
  return text;
}

// The state and the line of a step, short for the many steps and looks below.
using S = Dialog&;
using R = const CaseRow&;

testing::Trace<Dialog> RepeatDialogTrace() {
  testing::Trace<Dialog> t;
  const auto n = [](int value) { return std::to_string(value); };
  // A new item's dialog, without a rule, on a start date.
  t.steps["new"] = [](S d, R row) { d.model.Open(row.Date(1)); };
  // The dialog of an item with a rule: word, start, count, and where it was made with its
  // noted last date (codes) when given.
  t.steps["rule"] = [](S d, R row) {
    const auto word = static_cast<std::uint16_t>(std::stoi(row[1], nullptr, 16));
    d.work.WorkRepeatKind = word;
    d.work.Decode(word);
    d.work.RepeatFree = 0;
    d.work.RepeatCount = static_cast<std::int16_t>(row.Int(3));
    d.work.RepeatStartCode = row[4].empty() ? 0 : row.Int(4);
    d.work.RepeatLastCode = row[5].empty() ? -1 : row.Int(5);
    d.model.Open(row.Date(2));
  };
  t.steps["option1"] = [](S d, R row) { d.model.Option1_Click(row.Int(1)); };
  t.steps["option2"] = [](S d, R row) { d.model.Option2_Click(row.Int(1)); };
  t.steps["combo1"] = [](S d, R row) { d.model.Combo1_Click(row.Int(1)); };
  t.steps["combo2"] = [](S d, R row) { d.model.Combo2_Click(row.Int(1)); };
  // A number typed into the count or the interval and entered.
  t.steps["type"] = [](S d, R row) { d.model.ImNumber_Change(FieldOf(row), row.Int(2)); };
  // A key on a number box, and whether the box used it.
  t.steps["key"] = [](S d, R row) {
    const std::map<std::string, int> keys = {
        {"up", kKeyUp}, {"down", kKeyDown}, {"enter", kKeyEnter}, {"left", kKeyLeft}};
    EXPECT_EQ(d.model.ImNumber_KeyDown(FieldOf(row), keys.at(row[2])), row.YesNo(3)) << row.where;
  };
  t.steps["spin"] = [](S d, R row) { d.model.UpDown_Click(FieldOf(row), row.Int(2)); };
  t.steps["ok"] = [](S d, R row) {
    EXPECT_EQ(d.model.OKButton_Click(), row.YesNo(1)) << row.where << ": whether OK closes";
  };
  t.steps["cancel"] = [](S d, R) { d.model.CancelButton_Click(); };
  t.steps["unload"] = [](S d, R) { d.model.Form_Unload(); };
  // A kind's flag of the working values set by hand, or the code.
  t.steps["set-can"] = [](S d, R row) { d.work.CanOption(row.Int(1)) = row.YesNo(2); };
  t.steps["set-code"] = [](S d, R row) {
    d.work.RepeatCode = static_cast<std::int16_t>(row.Int(1));
  };

  // What the dialog shows.
  t.looks["option"] = [n](S d, auto&) { return n(d.model.CurrentOption()); };
  t.looks["option1"] = [n](S d, auto&) { return n(d.model.Controls().Option1); };
  t.looks["enabled"] = [](S d, auto& i) { return YesNo(d.model.Option1Enabled(stoi(i))); };
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
  t.looks["messages"] = [](S d, auto&) { return testing::NewMessageLines(d.messages, d.seen); };

  // The working values the dialog leaves for the edit dialog.
  t.looks["rule.word"] = [](S d, auto&) { return Hex(d.work.WorkRepeatKind); };
  t.looks["rule.code"] = [n](S d, auto&) { return n(d.work.RepeatCode); };
  t.looks["rule.option"] = [n](S d, auto&) { return n(d.work.RepeatOption); };
  t.looks["rule.free"] = [n](S d, auto&) { return n(d.work.RepeatFree); };
  t.looks["rule.count"] = [n](S d, auto&) { return n(d.work.RepeatCount); };
  t.looks["rule.can"] = [](S d, auto& i) { return YesNo(d.work.CanOption(stoi(i))); };
  // "step stepUsed: startCode to lastCode (lastYear-lastMonth-lastDay)"
  t.looks["rule.span"] = [n](S d, auto&) {
    const RepeatWork& w = d.work;
    return n(w.RepeatStep) + " " + n(w.RepeatStepUsed) + ": " + n(w.RepeatStartCode) + " to " +
           n(w.RepeatLastCode) + " (" +
           DateText({w.RepeatLastYear, w.RepeatLastMonth, w.RepeatLastDay}) + ")";
  };
  return t;
}

TEST(RepeatModel, FollowsTheTraces) {
  RepeatDialogTrace().Run("appointments/repeat-dialog.txt", 6, 300);
}

}  // namespace
}  // namespace sched
