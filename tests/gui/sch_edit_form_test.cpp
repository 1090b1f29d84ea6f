#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>
#include <memory>
#include <stdexcept>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/test_store.h"
#include "ui/sch_edit.h"

namespace sched {
namespace {

class CountingRepeatHost : public SchEditHost {
 public:
  int shown = 0;
  void ShowRepeatDialog(RepeatModel&) override { ++shown; }
};

class SchEditFormTest : public ::testing::Test {
 protected:
  SchEditFormTest() {
    fake.clock.Set({2026, 11, 21, 9, 40, 0});  // a new item runs from 10:00 to 10:30
    fake.doc.CurYear = 2026;
    fake.doc.CurMonth = 11;
    fake.doc.CurDay = 21;
  }

  // Shows the dialog over the opened model as the active window.
  void Show() {
    dialog = std::make_unique<SchEdit>(model);
    dialog->show();
    dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }

  template <class W>
  W* Find(const char* name) const {
    W* widget = dialog->findChild<W*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return widget;
  }
  QDateEdit* Date(int i) const { return Find<QDateEdit>(i == 0 ? "ImDate1(0)" : "ImDate1(1)"); }
  QComboBox* Time(int i) const { return Find<QComboBox>(i == 0 ? "Combo1(0)" : "Combo1(1)"); }
  std::string TimeShown(int i) const { return Time(i)->currentText().toStdString(); }
  void Click(const char* name) const { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }

  // 1 for each enabled widget of: Combo1(0), Combo1(1), Check1, ImNumber1, Sound, cbtSNDprev.
  std::string Enabled() const {
    std::string mask;
    for (const char* name :
         {"Combo1(0)", "Combo1(1)", "Check1", "ImNumber1", "Sound", "cbtSNDprev"}) {
      mask += Find<QWidget>(name)->isEnabled() ? '1' : '0';
    }
    return mask;
  }

  // Types over a box's text and leaves the box by Tab, as a user does.
  static void TypeOver(QWidget* box, const QString& text) {
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Tab);
  }


  void ExpectMessage(std::size_t index, const std::string& text, MsgButtons buttons) const {
    ASSERT_LT(index, messages.Shown().size());
    const MessageRequest& m = messages.Shown()[index];
    EXPECT_EQ(m.text, text);
    EXPECT_EQ(m.title, "Scheduler");
    EXPECT_EQ(m.icon, MsgIcon::Exclamation);
    EXPECT_EQ(m.buttons, buttons);
  }

  FakeStore fake;
  FakeMessages messages;
  FakeDateFormatter dates;
  CountingRepeatHost host;
  SchEditModel model{
      SchEditServices{fake.store, messages, fake.clock, dates, host, {"BELL", "SCHALARM"}}};
  std::unique_ptr<SchEdit> dialog;
};

TEST_F(SchEditFormTest, ANewItemMadeInTheWindowIsWrittenOnOk) {
  model.OpenNew();
  Show();
  EXPECT_EQ(dialog->objectName().toStdString(), "SchEdit");
  EXPECT_EQ(dialog->windowTitle().toStdString(), "Appointment - New");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Date(i)->date(), QDate(2026, 11, 21));
    EXPECT_EQ(Date(i)->minimumDate(), QDate(1901, 1, 1));
    EXPECT_EQ(Date(i)->maximumDate(), QDate(2099, 12, 31));
    EXPECT_EQ(Time(i)->count(), 49);
  }
  EXPECT_EQ(TimeShown(0), "10:00 AM");
  EXPECT_EQ(TimeShown(1), "10:30 AM");
  EXPECT_EQ(Enabled(), "111000");
  EXPECT_FALSE(Find<QWidget>("SelSubject")->isEnabled());

  QTest::keyClicks(Find<QLineEdit>("Text1"), "Dentist");
  Click("Check3");
  EXPECT_EQ(Enabled(), "000000");
  EXPECT_EQ(TimeShown(0), "");
  EXPECT_EQ(TimeShown(1), "");
  Click("Check3");
  EXPECT_EQ(Enabled(), "111000");
  EXPECT_EQ(TimeShown(0), "10:00 AM");

  // The next item of the start pulls the end along; a typed end stays as typed.
  Time(0)->setFocus();
  QTest::keyClick(Time(0), Qt::Key_Down);
  EXPECT_EQ(TimeShown(0), "10:30 AM");
  EXPECT_EQ(TimeShown(1), "11:00 AM");
  TypeOver(Time(1), "11:45 AM");
  EXPECT_EQ(TimeShown(1), "11:45 AM");
  EXPECT_EQ(TimeShown(0), "10:30 AM");

  Click("Check1");
  EXPECT_EQ(Enabled(), "111110");
  EXPECT_EQ(Find<QComboBox>("Sound")->currentText().toStdString(), "SCHALARM");
  auto* minutes = Find<QSpinBox>("ImNumber1");
  minutes->setFocus();
  QTest::keyClick(minutes, Qt::Key_Up);
  QTest::keyClick(minutes, Qt::Key_Up);
  EXPECT_EQ(minutes->value(), 10);
  // A typed value counts before the next step.
  QTest::keyClick(minutes, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(minutes, "45");
  QTest::keyClick(minutes, Qt::Key_Up);
  EXPECT_EQ(minutes->value(), 50);
  Click("Check2");

  Click("SchEditOK");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_TRUE(messages.Shown().empty());
  const std::vector<SchDatRow> rows = LiveRows(fake.doc.Tables);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Title, "Dentist");
  EXPECT_EQ(rows[0].Year * 10000 + rows[0].Month * 100 + rows[0].Day, 20261121);
  EXPECT_EQ(rows[0].StartTime, 10 * 60 + 30);
  EXPECT_EQ(rows[0].EndTime, 11 * 60 + 45);
  EXPECT_EQ(rows[0].AlarmOn, 1);
  EXPECT_EQ(rows[0].AlarmLead, 50);
  EXPECT_EQ(rows[0].AlarmSound, "SCHALARM");
  EXPECT_EQ(rows[0].Private, 1);
}

TEST_F(SchEditFormTest, CancelAfterAChangeAsksAndNoClosesWithoutWriting) {
  model.OpenNew();
  Show();
  QTest::keyClicks(Find<QLineEdit>("Text1"), "Gym");
  Find<QWidget>("Check2")->setFocus();

  // Escape is Cancel; cancelling the question goes back to the title.
  messages.QueueAnswer(MsgAnswer::Cancel);
  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->focusWidget(), Find<QWidget>("Text1"));

  messages.QueueAnswer(MsgAnswer::No);
  Click("SchEditCAN");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  ASSERT_EQ(messages.Shown().size(), 2u);
  ExpectMessage(0, "Do you want to save the changes?", MsgButtons::YesNoCancel);
  ExpectMessage(1, "Do you want to save the changes?", MsgButtons::YesNoCancel);
  EXPECT_TRUE(LiveRows(fake.doc.Tables).empty());
  EXPECT_EQ(fake.doc.CurDay, 21);
}

TEST_F(SchEditFormTest, AnItemOpensWithItsValuesAndKeepsTheMemoLines) {
  SchRecord item = MakeItem(2026, 11, 21, 9 * 60 + 15, 9 * 60 + 45, "Lunch with Ada");
  item.Place = "Canteen";
  item.Memo = "Soup\r\nBread";
  item.AlarmOn = 1;
  item.AlarmLead = 15;
  item.AlarmSound = "BELL";
  item.Private = 1;
  fake.store.InsertRecord(item);
  model.OpenModify(0);
  Show();
  EXPECT_EQ(dialog->windowTitle().toStdString(), "Appointment - Lunch with Ada");
  EXPECT_EQ(Find<QLineEdit>("Text1")->text().toStdString(), "Lunch with Ada");
  EXPECT_EQ(Find<QLineEdit>("Text3")->text().toStdString(), "Canteen");
  auto* memo = Find<QPlainTextEdit>("Text2");
  EXPECT_EQ(memo->toPlainText().toStdString(), "Soup\nBread");
  EXPECT_EQ(TimeShown(0), "9:15 AM");  // off the half-hour items
  EXPECT_EQ(TimeShown(1), "9:45 AM");
  EXPECT_TRUE(Find<QCheckBox>("Check1")->isChecked());
  EXPECT_EQ(Find<QSpinBox>("ImNumber1")->value(), 15);
  EXPECT_EQ(Find<QComboBox>("Sound")->currentText().toStdString(), "BELL");
  EXPECT_TRUE(Find<QCheckBox>("Check2")->isChecked());
  EXPECT_EQ(Enabled(), "111110");
  const char* shot = dialog->devicePixelRatioF() > 1 ? "sch_edit_2x.png" : "sch_edit.png";
  dialog->grab().save(QDir::temp().filePath(shot));

  // The memo holds 1024 characters, a line break counting as one.
  memo->setFocus();
  memo->moveCursor(QTextCursor::End);
  QTest::keyClick(memo, Qt::Key_Return);
  QTest::keyClicks(memo, "Tea");
  memo->insertPlainText(QString(1100, 'x'));
  EXPECT_EQ(memo->toPlainText().size(), 1024);
  Click("SchEditOK");
  EXPECT_FALSE(dialog->isVisible());
  const std::vector<SchDatRow> rows = LiveRows(fake.doc.Tables);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Memo, "Soup\r\nBread\r\nTea" + std::string(1024 - 14, 'x'));
  EXPECT_EQ(rows[0].StartTime, 9 * 60 + 15);
}

TEST_F(SchEditFormTest, ASoundNameTooLongKeepsTheFocus) {
  model.OpenNew();
  Show();
  Click("Check1");
  auto* sound = Find<QComboBox>("Sound");
  TypeOver(sound, "LONGSOUNDNAME");
  ASSERT_EQ(messages.Shown().size(), 1u);
  ExpectMessage(0, "Input string is too long.\r\nMaximum string length is 8 chacters",
                MsgButtons::Ok);
  EXPECT_TRUE(sound->hasFocus());
}

TEST_F(SchEditFormTest, TheDatesMoveTogetherAndTwoDatesTakeTheRepeatButton) {
  model.OpenNew();
  Show();
  auto* repeat = Find<QPushButton>("Command1");
  QTest::mouseClick(repeat, Qt::LeftButton);
  EXPECT_EQ(host.shown, 1);

  Date(1)->setDate(QDate(2026, 11, 23));
  EXPECT_FALSE(repeat->isEnabled());
  Date(0)->setDate(QDate(2026, 11, 22));
  EXPECT_EQ(Date(1)->date(), QDate(2026, 11, 24));
  Date(0)->setDate(QDate(2099, 12, 30));
  EXPECT_EQ(Date(1)->date(), QDate(2099, 12, 31));
  Date(1)->setDate(QDate(2099, 12, 30));
  EXPECT_TRUE(repeat->isEnabled());
}

}  // namespace
}  // namespace sched
