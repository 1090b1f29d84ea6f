#include "holidays/sch_week_h_model.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/fake/fake_messages.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/key_names.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// The weekly holiday dialog as tests/data/holidays/week-dialog.txt drives it.
struct Week {
  ScheduleDocument doc;
  FakeMessages messages;
  std::size_t seen = 0;
  RecordingHolidayHost host;
  SchWeekHModel model{doc, messages, host};

  Week() {
    doc.SetShownDate({2026, 11, 21});
    doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  }
};

std::string Flags(const WeekFlags& flags) {
  std::string text;
  for (std::int16_t flag : flags) text += std::to_string(flag);
  return text;
}

std::string Look(const CaptionLook& c) {
  return std::string(c.ForeColor == kRedColor          ? "r"
                     : c.ForeColor == kColorButtonText ? "b"
                                                       : "?") +
         (c.BackColor == kColorDarkGreen ? "g"
          : c.BackColor == kColorWhite   ? "w"
                                         : "?") +
         (c.FocusMark ? "+" : "-");
}

using S = Week&;
using R = const CaseRow&;

testing::Trace<Week> WeekDialogTrace() {
  testing::Trace<Week> t;
  testing::AddMessageWords(t);
  const auto n = [](int value) { return std::to_string(value); };
  t.steps["load"] = [](S w, R) { w.model.Form_Load(); };
  t.steps["click"] = [](S w, R r) { w.model.CSCaption1_Click(r.Int(1)); };
  // A key, and whether the dialog used it, when given.
  t.steps["key"] = [](S w, R r) {
    const bool used = w.model.Form_KeyDown(testing::KeyNamed(r[1]));
    if (r[2].empty()) return;
    EXPECT_EQ(used, r.YesNo(2)) << r.where;
  };
  t.steps["toggle"] = [](S w, R) { w.model.SetReset_Click(); };
  t.steps["ok"] = [](S w, R) { w.model.Command2_Click(); };
  t.steps["cancel"] = [](S w, R) { w.model.Command1_Click(); };
  // The close box, and whether the dialog closes.
  t.steps["close"] = [](S w, R r) {
    EXPECT_EQ(w.model.Form_QueryUnload(), r.YesNo(1)) << r.where << ": whether it closes";
  };

  t.looks["focus"] = [n](S w, auto&) { return n(w.model.CurrentCaption()); };
  t.looks["captions"] = [](S w, auto&) { return testing::Join(w.model.CSCaption1(), " ", Look); };
  t.looks["caption"] = [](S w, auto& i) { return Look(w.model.CSCaption1().at(std::stoul(i))); };
  t.looks["week"] = [](S w, auto&) { return Flags(w.doc.WeekHoliday); };
  t.looks["changed"] = [n](S w, auto&) { return n(w.model.WeekChanged()); };
  t.looks["decided"] = [n](S w, auto&) { return n(w.model.WeekDecided()); };
  t.looks["dirty"] = [](S w, auto&) { return YesNo(w.doc.Dirty); };
  t.looks["calls"] = [](S w, auto&) { return w.host.NewCalls(); };
  return t;
}

TEST(SchWeekHModel, FollowsTheTraces) {
  WeekDialogTrace().Run("holidays/week-dialog.txt", 3, 80);
}

}  // namespace
}  // namespace sched
