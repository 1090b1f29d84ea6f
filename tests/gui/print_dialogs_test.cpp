// The print commands in the running program: the range dialog, the preview of the pages and
// the window of a running job.
#include <QDateEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "tests/gui/gui_fixture.h"
#include "tests/support/message_lines.h"
#include "ui/dlg_printing.h"
#include "ui/schmain.h"
#include "ui/select_print_date.h"

namespace sched {
namespace {

// Runs `handle` on the next modal dialog of type T, once it is open.
template <class T>
void OnDialog(std::function<void(T*)> handle) {
  QTimer::singleShot(10, [handle] {
    auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return OnDialog<T>(handle);
    handle(dialog);
  });
}

class PrintDialogsTest : public GuiTest {
 protected:
  void SetUp() override { ASSERT_FALSE(Start({QString::fromStdString(Sample())})); }
  void Trigger(const char* action) { app->Window()->Action(action)->trigger(); }
};

void SetRange(SelectPrintDate* dialog, const QDate& from, const QDate& to) {
  dialog->ImDate1()->setDate(from);
  dialog->ImDate2()->setDate(to);
}

TEST_F(PrintDialogsTest, ThePreviewShowsThePagesOfTheRangeChosen) {
  bool previewed = false;
  OnDialog<SelectPrintDate>([this, &previewed](SelectPrintDate* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Select Print Date");
    EXPECT_EQ(dialog->ImDate1()->date(), QDate(2026, 11, 21));
    EXPECT_EQ(dialog->ImDate2()->date(), QDate(2026, 11, 21));
    SetRange(dialog, QDate(2026, 11, 1), QDate(2026, 12, 31));
    dialog->grab().save(PicturePath(dir, "select_print_date.png"));
    OnDialog<QPrintPreviewDialog>([this, &previewed](QPrintPreviewDialog* preview) {
      auto* pages = preview->findChild<QPrintPreviewWidget*>();
      ASSERT_NE(pages, nullptr);
      EXPECT_GE(pages->pageCount(), 1);
      preview->resize(900, 1000);
      pages->fitInView();
      QTest::qWait(50);
      preview->grab().save(PicturePath(dir, "print_preview.png"));
      previewed = true;
      preview->reject();
    });
    QTest::mouseClick(dialog->SchEditOK(), Qt::LeftButton);
  });
  Trigger("MenuPrintPreview");
  EXPECT_TRUE(previewed);
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(PrintDialogsTest, ARangeThatEndsBeforeItStartsIsRefusedAndTheDialogStays) {
  OnDialog<SelectPrintDate>([this](SelectPrintDate* dialog) {
    SetRange(dialog, QDate(2026, 11, 30), QDate(2026, 11, 1));
    QTest::mouseClick(dialog->SchEditOK(), Qt::LeftButton);
    EXPECT_EQ(testing::MessageLines(messages),
              std::vector<std::string>{
                  "[Scheduler, Exclamation, Ok] The start date is after the end date."});
    EXPECT_TRUE(dialog->isVisible());
    QTest::mouseClick(dialog->SchEditCAN(), Qt::LeftButton);
  });
  Trigger("MenuPrint");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PrintDialogsTest, TheJobsWindowShowsHowFarItIsAndItsCancelStopsTheJob) {
  DlgPrinting window(app->Window());
  int cancels = 0;
  window.Show([&cancels] { ++cancels; });
  window.DoEvents(37, 100);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.Progress()->value(), 37);
  window.grab().save(PicturePath(dir, "dlg_printing.png"));
  QTest::mouseClick(window.CancelButton(), Qt::LeftButton);
  EXPECT_EQ(cancels, 1);
  window.Close();
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace sched
