#include "printing/select_print_date_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_messages.h"
#include "tests/support/date_text.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;

struct Dialog {
  PrintRange range;
  FakeMessages messages;
  std::size_t seen = 0;
  SelectPrintDateModel model{range, messages};
};

using S = Dialog&;
using R = const CaseRow&;

TEST(SelectPrintDateModel, FollowsTheTraces) {
  testing::Trace<Dialog> t;
  testing::AddMessageWords(t);
  t.steps["open"] = [](S d, R row) { d.model.Form_Load(row.Date(1)); };
  t.steps["start"] = [](S d, R row) { d.model.ImDate1_Change(row.Date(1)); };
  t.steps["end"] = [](S d, R row) { d.model.ImDate2_Change(row.Date(1)); };
  t.steps["ok"] = [](S d, R row) {
    EXPECT_EQ(d.model.SchEditOK_Click(), row.YesNo(1)) << row.where << ": whether OK closes";
  };
  t.steps["cancel"] = [](S d, R) { d.model.SchEditCAN_Click(); };
  t.looks["boxes"] = [](S d, auto&) {
    return DateText(d.model.Start()) + " " + DateText(d.model.End());
  };
  // The range left for the job: "none" until it is accepted.
  t.looks["range"] = [](S d, auto&) -> std::string {
    const PrintRange& r = d.range;
    if (!r.Accepted) return "none";
    return DateText({r.StartYear, r.StartMonth, r.StartDay}) + " " +
           DateText({r.EndYear, r.EndMonth, r.EndDay});
  };
  t.Run("printing/select-print-date.txt", 3, 10);
}

}  // namespace
}  // namespace sched
