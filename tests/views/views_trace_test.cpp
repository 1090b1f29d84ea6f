#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <set>
#include <string>

#include "tests/support/date_text.h"
#include "tests/support/key_names.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// The views as tests/data/views/views.txt drives them; the day's time bar a pixel a minute.
struct Views : ViewsFixture {
  ViewAction action;     // what the last mouse or key asked of the window
  double listLeft = 0;   // where the schedule list stood, kept
  std::size_t seen = 0;  // the messages looked at

  Views() {
    views.Day().Pict.SetScale(1440, 20);
    s.doc.SetShownDate({2010, 6, 15});
  }
};

// Lines as "[one][two][]".
std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "[" + line + "]";
  return text;
}

std::string Numbers(const std::vector<int>& numbers) {
  return testing::Join(numbers, " ", [](int n) { return std::to_string(n); });
}

// The state and the line of a step, short for the many steps and looks below.
using S = Views&;
using R = const CaseRow&;

testing::Trace<Views> ViewsTrace() {
  testing::Trace<Views> t;
  testing::AddMessageWords(t);
  const auto n = [](int value) { return std::to_string(value); };
  const auto cell = [](Views& v, const std::string& i) -> const MonthCell& {
    return v.Cell(std::stoi(i));
  };

  // The schedule and the holidays.
  t.steps["insert"] = [](S v, R r) {
    const CivilDate d = r.Date(1);
    v.Insert(d.year, d.month, d.day, r.Int(2), r.Int(3), r[4]);
  };
  t.steps["span"] = [](S v, R r) { InsertSpan(v.s.store, r.Date(1), r.Int(2), r[3], r.Int(4)); };
  t.steps["delete"] = [](S v, R r) { v.s.doc.Tables.SchDatList.Edit(r.Int(1)).Deleted = kDeleted; };
  t.steps["masks"] = [](S v, R r) {
    const auto bit = [&](std::size_t i) { return r[i] == "-" ? 0 : Bit(r.Int(i)); };
    v.SetMasks(r.Int(1), r.Int(2), bit(3), bit(4));
  };
  t.steps["year-row"] = [](S v, R r) {
    v.s.doc.Tables.AncYY.Edit(r.Int(1)).Year = static_cast<std::uint16_t>(r.Int(2));
  };
  t.steps["holiday"] = [](S v, R r) {
    const CivilDate d = r.Date(1);
    v.calendar.Add(d.year, d.month, d.day, r[2]);
  };
  t.steps["copied"] = [](S v, R r) { v.s.doc.CopiedRow = r.Int(1); };

  // What the user does.
  t.steps["show"] = [](S v, R r) { v.ShowMonth(r.Int(1), r.Int(2)); };
  t.steps["select"] = [](S v, R r) { v.views.SelectCell(r.Int(1)); };
  t.steps["refresh"] = [](S v, R) { v.views.RefreshViews(); };
  t.steps["combo1"] = [](S v, R r) { v.views.SetCombo1(r.Int(1)); };
  t.steps["combo2"] = [](S v, R r) { v.views.SetCombo2(r.Int(1)); };
  t.steps["not-ready"] = [](S v, R) { v.views.ViewsReady = -1; };
  t.steps["tab"] = [](S v, R r) { v.views.SSTab1_Click(r.Int(1)); };
  t.steps["calendar"] = [](S v, R r) { v.views.CSCal4_Change(r.Date(1)); };
  t.steps["month-arrow"] = [](S v, R r) { v.views.ComMM_Click(r.Int(1)); };
  t.steps["today"] = [](S v, R) { v.views.GoToday(); };
  // A cell's day number written over, to see whether a fill comes.
  t.steps["mark-cell"] = [](S v, R r) { v.views.Month().Cell(r.Int(1)).dayText = r[2]; };
  t.steps["key"] = [](S v, R r) {
    const KeyResult result = v.views.Text1_KeyDown(testing::KeyNamed(r[1]));
    EXPECT_EQ(result.consumed, r.YesNo(2)) << r.where;
    v.action = result.action;
  };
  t.steps["timer"] = [](S v, R) { v.views.Timer1_Timer(); };
  t.steps["day-select"] = [](S v, R r) { v.views.List1_SelChange(r.Int(1), r.Int(2)); };
  t.steps["edit-menu"] = [](S v, R) { v.views.EditCTL_Open(); };
  t.steps["grid-press"] = [](S v, R r) { v.views.Grid1_MouseDown(r.Int(1), r.Int(2)); };
  t.steps["cell-double"] = [](S v, R r) { v.action = v.views.Cell_DblClick(r.Int(1)); };
  t.steps["cell-right"] = [](S v, R r) { v.action = v.views.Cell_RightUp(r.Int(1)); };
  t.steps["grid-double"] = [](S v, R r) { v.action = v.views.Grid1_DblClick(r.Int(1), r.Int(2)); };
  t.steps["day-double"] = [](S v, R) { v.action = v.views.List1_DblClick(); };
  t.steps["day-right"] = [](S v, R) { v.action = v.views.List1_RightUp(); };
  // The day list's fill on its own: the old lines, then a fill; whether it filled.
  t.steps["day-fill"] = [](S v, R r) {
    v.views.Day().List1 = {"old", ""};
    const CivilDate d = r.Date(1);
    EXPECT_EQ(v.views.Day().ShowDayList(d.year, d.month, d.day, true), r.YesNo(2)) << r.where;
  };
  // The schedule list dialog.
  t.steps["comdt"] = [](S v, R) { v.action = v.views.ComDt_Click(); };
  t.steps["list-select"] = [](S v, R r) {
    v.views.List().List1_Click(r.Int(1), r.Int(2), v.messages);
  };
  t.steps["list-double"] = [](S v, R) { v.action = v.views.List().List1_DblClick(); };
  t.steps["list-escape"] = [](S v, R) { v.views.List().Form_KeyDown(kKeyEscape); };
  t.steps["keep-list-place"] = [](S v, R) { v.listLeft = v.views.List().Position.left; };

  // The month grid.
  t.looks["cell.date"] = [cell](S v, auto& i) { return DateText(cell(v, i).date); };
  t.looks["cell.day"] = [cell](S v, auto& i) { return cell(v, i).dayText; };
  t.looks["cell.colour"] = [cell](S v, auto& i) -> std::string {
    return cell(v, i).dayColor == DayColor::Red ? "red" : "black";
  };
  t.looks["cell.back"] = [cell](S v, auto& i) {
    static const char* const kBacks[] = {"window", "grey", "selection"};
    return std::string(kBacks[static_cast<int>(cell(v, i).back)]);
  };
  t.looks["cell.holiday"] = [cell](S v, auto& i) { return cell(v, i).holidayName; };
  t.looks["cell.lines"] = [cell](S v, auto& i) { return Lines(cell(v, i).lines); };
  t.looks["cell.rows"] = [cell](S v, auto& i) { return Numbers(cell(v, i).rows); };
  t.looks["cell.items"] = [cell](S v, auto& i) { return YesNo(cell(v, i).hasItems); };
  t.looks["cell.list-rows"] = [cell, n](S v, auto& i) { return n(cell(v, i).ListRows()); };
  t.looks["current"] = [](S v, auto&) {
    return DateText({v.s.doc.CurYear, v.s.doc.CurMonth, v.s.doc.CurDay});
  };
  t.looks["shown"] = [](S v, auto&) {
    return DateText({v.views.Month().ShownYear, v.views.Month().ShownMonth, 1}).substr(0, 7);
  };
  t.looks["selected"] = [n](S v, auto&) { return n(v.views.Month().SelectedCell); };
  t.looks["year-row"] = [n](S v, auto&) { return n(v.views.Month().ShownYearRow); };
  t.looks["comdt"] = [](S v, auto&) { return YesNo(v.views.Month().ComDtVisible); };
  t.looks["label"] = [](S v, auto&) { return v.views.DateLabel; };
  t.looks["combo1"] = [n](S v, auto&) { return n(v.views.Combo1Index); };
  t.looks["combo2"] = [n](S v, auto&) { return n(v.views.Combo2Index); };
  t.looks["back-from-day"] = [n](S v, auto&) { return n(v.views.BackFromDay); };
  t.looks["popup-active"] = [n](S v, auto&) { return n(v.views.PopupActive); };
  t.looks["focus-calendar"] = [](S v, auto&) {
    return YesNo(v.views.Focus == FocusTarget::CSCal4);
  };
  // The holiday mask of January of the year before the shown one, as a fill loaded it.
  t.looks["previous-year-mask"] = [n](S v, auto&) { return n(v.s.doc.PrevYearMasks.HolidayOn[0]); };

  // The day tab.
  t.looks["day.lines"] = [](S v, auto&) { return Lines(v.views.Day().List1); };
  t.looks["day.rows"] = [](S v, auto&) { return Numbers(v.views.Day().List2); };
  t.looks["day.selected"] = [n](S v, auto&) { return n(v.views.Day().List1Row); };
  t.looks["day.untimed"] = [n](S v, auto&) { return n(v.views.Day().NoTimeCount); };
  t.looks["day.mark"] = [](S v, auto& day) {
    return YesNo(v.views.Day().Marks.at(std::stoul(day) - 1));
  };
  t.looks["day.timer"] = [](S v, auto&) { return YesNo(v.views.Day().Timer1Enabled); };
  t.looks["day.flash"] = [n](S v, auto&) { return n(v.views.Day().FlashState); };
  t.looks["day.calendar"] = [](S v, auto&) { return DateText(v.views.Day().CalendarDate); };
  // The paint of the bar's columns FROM-TO (all of them without): span, ground or mixed.
  t.looks["day.bar"] = [](S v, auto& range) -> std::string {
    const TimeBar& bar = v.views.Day().Pict;
    int from = 0, to = static_cast<int>(bar.Columns().size()) - 1;
    if (!range.empty()) std::sscanf(range.c_str(), "%d-%d", &from, &to);
    std::set<TimeBar::Paint> paints;
    for (int x = from; x <= to; ++x) paints.insert(bar.At(x));
    if (paints.size() != 1) return "mixed";
    return *paints.begin() == TimeBar::Paint::Span ? "span" : "ground";
  };

  // The menus, and what the last mouse or key asked for.
  // The entries on: of the delete menu, and those for the selected item.
  const auto on = [](std::initializer_list<std::pair<bool, const char*>> entries) {
    std::string names;
    for (const auto& [enabled, name] : entries) {
      if (enabled) names += (names.empty() ? "" : " ") + std::string(name);
    }
    return names;
  };
  t.looks["delete-menus"] = [on](S v, auto&) {
    const MenuState& m = v.views.Menus();
    return on({{m.DelCTRL, "DelCTRL"},
               {m.DelMonth, "DelMonth"},
               {m.DelYear, "DelYear"},
               {m.DelBefore, "DelBefore"},
               {m.DelAfter, "DelAfter"}});
  };
  t.looks["item-menus"] = [on](S v, auto&) {
    const MenuState& m = v.views.Menus();
    return on({{m.CopySchdat, "CopySchdat"},
               {m.PasteSchdat, "PasteSchdat"},
               {m.UpdSchDat, "UpdSchDat"},
               {m.DelSchDat, "DelSchDat"},
               {m.ToolbarDelete, "ToolbarDelete"}});
  };
  t.looks["action"] = [n](S v, auto&) {
    static const char* const kCommands[] = {"none",  "add",    "modify",    "delete",
                                            "popup", "popup3", "focus-list"};
    const std::string command = kCommands[static_cast<int>(v.action.command)];
    return v.action.command == ViewCommand::ModifySchedule ? command + " " + n(v.action.row)
                                                           : command;
  };
  t.looks["popup"] = [on](S v, auto&) {
    const PopupItems& p = v.action.popup;
    return on({{p.Copy, "copy"}, {p.Update, "update"}, {p.Del, "delete"}, {p.Paste, "paste"}});
  };

  // The schedule list dialog.
  t.looks["list.shown"] = [](S v, auto&) { return YesNo(v.views.List().Visible); };
  t.looks["list.lines"] = [](S v, auto&) { return Lines(v.views.List().Lines); };
  t.looks["list.caption"] = [](S v, auto&) { return v.views.List().Caption; };
  t.looks["list.moved-right"] = [](S v, auto&) {
    return YesNo(v.views.List().Position.left > v.listLeft);
  };
  t.looks["list.paste"] = [](S v, auto&) { return YesNo(v.views.List().Popup(false).Paste); };
  return t;
}

TEST(Views, FollowTheTraces) {
  ViewsTrace().Run("views/views.txt", 5, 250);
}

}  // namespace
}  // namespace sched
