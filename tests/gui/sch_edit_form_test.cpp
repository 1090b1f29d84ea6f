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
#include "ui/sch_edit.h"

namespace sched {
namespace {

using testing::CaseRow;

// The repeat dialog is the program's; this window is tried alone.
class NoRepeatHost : public SchEditHost {
  void ShowRepeatDialog(RepeatModel&) override {}
};

// The appointment dialog over a store, shown as the active window, as
// tests/data/gui/edit-window.txt drives it. Today is 2026/11/21, 9:40, and so is the shown date.
struct Form {
  FakeStore fake;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  NoRepeatHost host;
  SchEditModel model{
      SchEditServices{fake.store, messages, fake.clock, dates, host, {"BELL", "SCHALARM"}}};
  std::unique_ptr<SchEdit> dialog;
  TempDir pictures;

  Form() {
    fake.clock.Set({2026, 11, 21, 9, 40, 0});
    fake.doc.CurYear = 2026;
    fake.doc.CurMonth = 11;
    fake.doc.CurDay = 21;
  }
  QWidget* Window() { return dialog.get(); }
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
    return f.dialog->result() == QDialog::Accepted ? "accepted" : "rejected";
  };
  t.looks["focus"] = [](S f, auto&) { return f.dialog->focusWidget()->objectName().toStdString(); };
  return t;
}

TEST(SchEditForm, FollowsTheTraces) {
  EditWindowTrace().Run("gui/edit-window.txt", 10, 80);
}

}  // namespace
}  // namespace sched
