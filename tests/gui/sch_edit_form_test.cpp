#include <gtest/gtest.h>

#include <QDialog>
#include <memory>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/gui/picture_path.h"
#include "tests/gui/widget_trace.h"
#include "tests/support/message_lines.h"
#include "tests/support/row_looks.h"
#include "tests/support/test_store.h"
#include "ui/repeat.h"
#include "ui/sch_edit.h"

namespace sched {
namespace {

using testing::CaseRow;

class CountingRepeatHost : public SchEditHost {
 public:
  int shown = 0;
  void ShowRepeatDialog(RepeatModel&) override { ++shown; }
};

// The appointment dialog over a store, shown as the active window, or the repeat dialog of a new
// item, as tests/data/gui/edit-window.txt drives them. Today is 2026/11/21, 9:40, and so is the
// shown date.
struct Form {
  FakeStore fake;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  CountingRepeatHost host;
  SchEditModel model{
      SchEditServices{fake.store, messages, fake.clock, dates, host, {"BELL", "SCHALARM"}}};
  std::unique_ptr<SchEdit> dialog;
  RepeatWork work;
  RepeatModel repeat{work, messages, dates};
  std::unique_ptr<RepeatForm> repeatForm;
  QSize repeatSize;
  TempDir pictures;

  Form() {
    fake.clock.Set({2026, 11, 21, 9, 40, 0});
    fake.doc.CurYear = 2026;
    fake.doc.CurMonth = 11;
    fake.doc.CurDay = 21;
  }
  QWidget* Window() { return repeatForm ? static_cast<QWidget*>(repeatForm.get()) : dialog.get(); }
  void Show() {
    dialog = std::make_unique<SchEdit>(model);
    dialog->show();
    dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
};

using S = Form&;
using R = const CaseRow&;

testing::Trace<Form> EditWindowTrace() {
  testing::Trace<Form> t;
  AddWidgetWords(t);
  testing::AddMessageWords(t);
  testing::AddRowLooks(t, [](S f) -> const SchDatCTL& { return f.fake.doc.Tables; });
  t.steps["new"] = [](S f, R) {
    f.model.OpenNew();
    f.Show();
  };
  t.steps["open-repeat"] = [](S f, R r) {
    f.repeat.Open(r.Date(1));
    f.repeatForm = std::make_unique<RepeatForm>(f.repeat);
    f.repeatForm->open();
    f.repeatSize = f.repeatForm->size();
  };
  t.steps["modify"] = [](S f, R r) {
    f.model.OpenModify(r.Int(1));
    f.Show();
  };
  // A row written before: DATE START END TITLE PLACE MEMO SOUND LEAD PRIVATE.
  t.steps["insert"] = [](S f, R r) {
    const CivilDate d = r.Date(1);
    SchRecord item = MakeItem(d.year, d.month, d.day, r.Int(2), r.Int(3), r[4]);
    item.Place = r[5];
    item.Memo = testing::Unescaped(r[6]);
    item.AlarmOn = r[7].empty() ? 0 : 1;
    item.AlarmSound = r[7];
    item.AlarmLead = static_cast<std::int16_t>(r[8].empty() ? 0 : r.Int(8));
    item.Private = static_cast<std::int16_t>(r.YesNo(9));
    f.fake.store.InsertRecord(item);
  };
  // A picture of the dialog, for a look by eye.
  t.steps["grab"] = [](S f, R r) {
    f.Window()->grab().save(PicturePath(f.pictures, QString::fromStdString(r[1])));
  };
  t.looks["result"] = [](S f, auto&) -> std::string {
    return static_cast<QDialog*>(f.Window())->result() == QDialog::Accepted ? "accepted"
                                                                            : "rejected";
  };
  t.looks["focus"] = [](S f, auto&) { return f.dialog->focusWidget()->objectName().toStdString(); };
  // The repeat dialog: whether it kept its size; the rule it left: word, code, free, count,
  // step and last date; whether OK closed it; the start it moved to.
  t.looks["size-kept"] = [](S f, auto&) {
    return testing::YesNo(f.repeatForm->size() == f.repeatSize);
  };
  t.looks["rule"] = [](S f, auto&) {
    return testing::HexWord(f.work.WorkRepeatKind) + " " +
           testing::Join(std::vector<int>{f.work.RepeatCode, f.work.RepeatFree, f.work.RepeatCount,
                                          f.work.RepeatStep, f.work.RepeatLastCode},
                         " ", [](int v) { return std::to_string(v); });
  };
  t.looks["confirmed"] = [](S f, auto&) { return testing::YesNo(f.repeat.Confirmed()); };
  t.looks["start"] = [](S f, auto&) {
    const CivilDate d = f.repeat.StartDate();
    return std::to_string(d.year * 10000 + d.month * 100 + d.day);
  };
  t.looks["repeat-shown"] = [](S f, auto&) { return std::to_string(f.host.shown); };
  t.looks["shown"] = [](S f, auto&) {
    return std::to_string(f.fake.doc.CurYear * 10000 + f.fake.doc.CurMonth * 100 +
                          f.fake.doc.CurDay);
  };
  return t;
}

TEST(SchEditForm, FollowsTheTraces) {
  EditWindowTrace().Run("gui/edit-window.txt", 10, 80);
}

}  // namespace
}  // namespace sched
