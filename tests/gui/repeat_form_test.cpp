#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/gui/gui_fixture.h"
#include "ui/repeat.h"

namespace sched {
namespace {

class RepeatFormTest : public ::testing::Test {
 protected:
  // The repeat dialog of a new item on `start`, shown.
  void Open(const CivilDate& start) {
    model.Open(start);
    form = std::make_unique<RepeatForm>(model);
    form->open();
  }

  RepeatWork work;
  FakeMessages messages;
  FakeDateFormatter dates;
  RepeatModel model{work, messages, dates};
  std::unique_ptr<RepeatForm> form;
};

TEST_F(RepeatFormTest, AWeeklyRuleIsChosenAndConfirmed) {
  Open({2026, 11, 18});
  EXPECT_EQ(form->objectName(), "Repeat");
  EXPECT_EQ(form->windowTitle(), "Repeat");
  const QWidget* frame1 = form->findChild<QWidget*>("Frame1");
  ASSERT_NE(frame1, nullptr);
  EXPECT_FALSE(frame1->isVisible());
  EXPECT_EQ(form->Label2()->text(), " No Repeat ");
  const QSize size = form->size();

  QTest::mouseClick(form->Option1(2), Qt::LeftButton);
  EXPECT_TRUE(frame1->isVisible());
  EXPECT_FALSE(form->Option2(0)->isVisible());
  EXPECT_EQ(form->findChild<QLabel*>("Label4")->text(), "week(s)");
  Enter(form->ImNumber2(), 2);
  Enter(form->ImNumber1(), 5);
  EXPECT_TRUE(form->isVisible());  // Enter applies the number, it does not press OK
  EXPECT_EQ(form->Label6(0)->text(), "2026/11/18(Wed)");
  EXPECT_EQ(form->Label6(1)->text(), "2027/01/13(Wed)");
  EXPECT_EQ(form->Label2()->text(),
            " The item repeats every 2 week(s)\nfrom 2026/11/18(Wed) to 2027/01/13(Wed).");
  EXPECT_EQ(form->size(), size);
  form->grab().save(SCHEDULER_BUILD_DIR "/Repeat.png");

  QTest::mouseClick(form->OKButton(), Qt::LeftButton);
  EXPECT_EQ(form->result(), QDialog::Accepted);
  EXPECT_EQ(work.WorkRepeatKind, 0x102C);
  EXPECT_EQ(work.RepeatCode, kCodeWeekly);
  EXPECT_EQ(work.RepeatFree, 0);
  EXPECT_EQ(work.RepeatCount, 5);
  EXPECT_EQ(work.RepeatStep, 1);
  EXPECT_EQ(work.RepeatLastCode, 20270113);
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RepeatFormTest, AWeekdayOfTheMonthMovesTheStart) {
  Open({2026, 11, 21});
  QTest::mouseClick(form->Option1(3), Qt::LeftButton);
  EXPECT_FALSE(form->Combo1()->isEnabled());
  QTest::mouseClick(form->Option2(1), Qt::LeftButton);
  ASSERT_TRUE(form->Combo1()->isEnabled());
  EXPECT_EQ(form->Combo1()->currentText(), "Saturday");
  EXPECT_EQ(form->Combo2()->currentText(), "3rd");

  QTest::keyClick(form->Combo1(), Qt::Key_Up);  // Friday
  EXPECT_EQ(form->Label6(0)->text(), "2026/11/20(Fri)");
  QTest::keyClick(form->Combo2(), Qt::Key_End);  // Last
  EXPECT_EQ(form->Combo2()->currentText(), "Last");
  EXPECT_EQ(form->Label6(0)->text(), "2026/11/27(Fri)");
  EXPECT_EQ(form->Label6(1)->text(), "2026/12/25(Fri)");
  form->grab().save(SCHEDULER_BUILD_DIR "/Repeat_weekday.png");

  QTest::mouseClick(form->OKButton(), Qt::LeftButton);
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 27}));
  EXPECT_EQ(work.WorkRepeatKind, 0x207D);
}

TEST_F(RepeatFormTest, AnInvalidNumberIsRefusedAndSelected) {
  Open({2026, 11, 21});
  QTest::mouseClick(form->Option1(1), Qt::LeftButton);
  Enter(form->ImNumber1(), 40);
  ASSERT_EQ(messages.Shown().size(), 1u);
  EXPECT_EQ(messages.Shown()[0].text, "Invalid input.");
  EXPECT_EQ(form->ImNumber1()->value(), 31);
  EXPECT_EQ(form->ImNumber1()->findChild<QLineEdit*>()->selectedText(), "31");
  QTest::keyClick(form->ImNumber1(), Qt::Key_Up);  // at the maximum
  EXPECT_EQ(form->ImNumber1()->value(), 31);
  QTest::mouseClick(form->CancelButton(), Qt::LeftButton);
  EXPECT_EQ(form->result(), QDialog::Rejected);
  EXPECT_FALSE(model.Confirmed());
}

}  // namespace
}  // namespace sched
