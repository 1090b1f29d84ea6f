// Copy, paste and the deletes as a user reaches them: right clicks, popup entries, the
// questions, the menus; the grid and the saved file afterwards.
#include "tests/gui/views_gui_support.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

class ItemCommandsTest : public ViewsGuiTest {
 protected:
  // The program on a file of one weekly series of four (from Tuesday 2026/11/3) and one plain
  // item on Friday 2026/11/6.
  void SetUp() override {
    clock.SetSecondsPerReading(1);  // each new series waits for a stamp of its own
    TestStore file;
    SchRecord weekly = MakeItem(2026, 11, 3, 540, 600, "Standup");
    weekly.RepeatKind = 0x1008;  // every week on Tuesday
    InsertSeries(file.store, weekly, 4, 7);
    file.store.InsertRecord(MakeItem(2026, 11, 6, 720, 780, "Lunch"));
    path = file.dir.File("items.scl");
    ASSERT_FALSE(file.SaveTo("items.scl").empty());
    std::filesystem::copy_file(path, dir.File("items.scl"));
    path = dir.File("items.scl");
    ASSERT_FALSE(Start({QString::fromStdString(path)}).has_value());
    window = app->Window();
    month = window->MonthPage();
    window->resize(1280, 800);
    QApplication::processEvents();
  }

  int CellOf(int date) const { return Views().Month().FirstCell + date - 1; }
  std::size_t Items(int date) const { return Views().Month().Cell(CellOf(date)).rows.size(); }
  // A right click on a day's first line, then a popup entry.
  void Choose(int date, const char* entry) {
    QTest::mouseClick(month->Grid1(CellOf(date)), Qt::RightButton, {}, QPoint(10, 5));
    QMenu* popup = window->Popup("PopMenuCTRL2");
    ASSERT_TRUE(popup->isVisible());
    QAction* action = window->Action(entry);
    ASSERT_TRUE(action->isEnabled()) << entry;
    popup->hide();
    action->trigger();
  }
  int SavedRows() {
    dialogs.QueueAnswer(path);
    window->Action("SaveName_Menu")->trigger();
    TestStore saved;
    EXPECT_TRUE(saved.LoadFrom(path));
    return saved.doc.Tables.RowCount;
  }

  std::string path;
};

TEST_F(ItemCommandsTest, CopyAndPasteASeriesOrASingleItem) {
  Choose(10, "Pop2Copy");
  messages.QueueAnswer(MsgAnswer::Yes);  // keep the rule: four Thursdays from the 12th
  QTest::mouseClick(month->Label9(CellOf(12)), Qt::RightButton, {}, QPoint(5, 5));
  window->Popup("PopMenuCTRL2")->hide();
  window->Action("Pop2Paste")->trigger();
  EXPECT_EQ(messages.Shown().back().text, "Do you want to keep regular information?");
  EXPECT_EQ(messages.Shown().back().buttons, MsgButtons::YesNo);
  for (int date : {12, 19, 26}) EXPECT_EQ(Items(date), 1u) << date;
  EXPECT_TRUE(app->Document().Dirty);

  messages.QueueAnswer(MsgAnswer::No);  // one plain item
  ClickCell(CellOf(13));
  window->Action("PasteSchdat")->trigger();
  EXPECT_EQ(Items(13), 1u);
  EXPECT_EQ(SavedRows(), 4 + 1 + 4 + 1);
}

TEST_F(ItemCommandsTest, DeletingOneOccurrenceRemovesTheSeries) {
  messages.QueueAnswer(MsgAnswer::No);
  Choose(17, "Pop2Del");
  EXPECT_EQ(messages.Shown().back().text,
            "Do you want to delete Weekly repeat schedule\r\nStandup?");
  EXPECT_EQ(Items(17), 1u);

  messages.QueueAnswer(MsgAnswer::Yes);
  Choose(17, "Pop2Del");
  for (int date : {3, 10, 17, 24}) EXPECT_EQ(Items(date), 0u) << date;
  EXPECT_EQ(Items(6), 1u);
  EXPECT_EQ(SavedRows(), 1);
}

TEST_F(ItemCommandsTest, DeleteThisMonthAsksAndLeavesOrCutsTheSeries) {
  ClickCell(CellOf(6));
  ASSERT_TRUE(window->Action("DelMonth")->isEnabled());
  messages.QueueAnswer(MsgAnswer::Yes);  // delete
  messages.QueueAnswer(MsgAnswer::Yes);  // leave the repeating items
  window->Action("DelMonth")->trigger();
  EXPECT_EQ(messages.Shown()[messages.Shown().size() - 2].text,
            "Delete schedule in 2026/11.\r\nAre you sure?");
  EXPECT_EQ(Items(6), 0u);
  EXPECT_EQ(Items(3), 1u);
  EXPECT_EQ(SavedRows(), 4);
}

}  // namespace
}  // namespace sched
