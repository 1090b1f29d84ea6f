#include "views/delete_menus.h"

#include <gtest/gtest.h>

#include "tests/support/case_file.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

TEST(DataAround, AfterAndBeforeAreTwins) {
  for (const CaseRow& row : ReadCases("views/data-around.txt", 7, 12)) {
    ViewsFixture f;
    if (!row[1].empty()) {
      const CivilDate item = row.Date(1);
      f.Insert(item.year, item.month, item.day, 540, 600, "x");
    }
    if (!row[2].empty()) f.SetMasks(row.Int(2), row.Int(3), Bit(1), 0);
    EXPECT_EQ(HasDataAfter(f.s.doc.Tables, row.Date(4)), row.YesNo(5)) << row.where;
    EXPECT_EQ(HasDataBefore(f.s.doc.Tables, row.Date(4)), row.YesNo(6)) << row.where;
  }
}

TEST(DataAround, DeletedRowsAreNoData) {
  ViewsFixture f;
  f.Insert(2010, 6, 20, 540, 600, "x");
  f.s.doc.Tables.SchDatList.At(0).Deleted = kDeleted;
  EXPECT_FALSE(HasDataAfter(f.s.doc.Tables, {2010, 6, 1}));
  EXPECT_FALSE(YearHasData(f.s.doc.Tables, 2010));
  EXPECT_FALSE(MonthHasLiveData(f.s.doc.Tables, 2010, 6));
}

TEST(DeleteMenus, ByTheSelectedCell) {
  ViewsFixture f;
  f.Insert(2010, 6, 10, 540, 600, "x");
  f.Insert(2010, 5, 10, 540, 600, "y");
  f.ShowMonth(2010, 6);  // day 1 selected
  const MenuState& m = f.views.Menus();
  EXPECT_TRUE(m.DelMonth);
  EXPECT_TRUE(m.DelYear);
  EXPECT_TRUE(m.DelAfter);
  EXPECT_TRUE(m.DelBefore);
  EXPECT_TRUE(m.DelCTRL);

  f.views.SelectCell(11);  // 10 June: nothing after it
  EXPECT_FALSE(m.DelAfter);
  EXPECT_TRUE(m.DelBefore);

  // A right click on a grey cell selects it and shows the popup; the month commands go off.
  f.s.doc.CopiedRow = 0;  // something copied
  const ViewAction popup = f.views.Cell_RightUp(0);
  EXPECT_EQ(popup.command, ViewCommand::ShowPopupMenu2);
  EXPECT_TRUE(popup.popup.Paste);
  EXPECT_FALSE(popup.popup.Copy);
  EXPECT_EQ(f.views.PopupActive, -1);
  EXPECT_EQ(f.s.doc.CurMonth, 5);
  EXPECT_FALSE(m.DelMonth);
  EXPECT_FALSE(m.DelYear);
  EXPECT_FALSE(m.DelAfter);
  EXPECT_FALSE(m.DelBefore);
  EXPECT_FALSE(m.DelCTRL);
}

TEST(DeleteMenus, MonthWithoutItemsAndYearWithOnlyAMask) {
  ViewsFixture f;
  f.SetMasks(2010, 3, Bit(2), 0);
  f.ShowMonth(2010, 6);
  EXPECT_FALSE(f.views.Menus().DelMonth);
  EXPECT_TRUE(f.views.Menus().DelYear);
  EXPECT_TRUE(f.views.Menus().DelBefore);
  f.ShowMonth(2011, 6);
  EXPECT_FALSE(f.views.Menus().DelYear);
  EXPECT_FALSE(f.views.Menus().DelAfter);
}

TEST(EditMenu, ItemEntriesFollowTheListSelection) {
  ViewsFixture f;
  f.Insert(2010, 6, 1, 540, 600, "x");
  f.ShowMonth(2010, 6);
  f.views.EditCTL_Open();
  EXPECT_TRUE(f.views.Menus().UpdSchDat);
  EXPECT_FALSE(f.views.Menus().PasteSchdat);
  f.views.Grid1_MouseDown(2, 1);  // the blank last row
  f.s.doc.CopiedRow = 0;          // something copied
  f.views.EditCTL_Open();
  EXPECT_FALSE(f.views.Menus().CopySchdat);
  EXPECT_FALSE(f.views.Menus().DelSchDat);
  EXPECT_TRUE(f.views.Menus().PasteSchdat);
}

struct PopupCase {
  ListSelection selection;
  bool item;
};

class PopupEntries : public ::testing::TestWithParam<PopupCase> {};

TEST_P(PopupEntries, OneItemRowOnly) {
  const PopupItems items = PopupItemsFor(GetParam().selection, false);
  EXPECT_EQ(items.Copy, GetParam().item);
  EXPECT_EQ(items.Update, GetParam().item);
  EXPECT_EQ(items.Del, GetParam().item);
  EXPECT_FALSE(items.Paste);
}

INSTANTIATE_TEST_SUITE_P(Selections, PopupEntries,
                         ::testing::Values(PopupCase{{3, 0, 0}, true}, PopupCase{{3, 1, 1}, true},
                                           PopupCase{{3, 2, 2}, false},  // the blank line
                                           PopupCase{{3, 5, 5}, false},  // below it
                                           PopupCase{{3, 0, 1}, false},  // two rows
                                           PopupCase{{3, -1, -1}, false},
                                           PopupCase{{0, 0, 0}, false}));

TEST(GridMouse, DoubleClicksAddOrModify) {
  ViewsFixture f;
  f.Insert(2010, 6, 1, 540, 600, "x");
  f.ShowMonth(2010, 6);
  const ViewAction onItem = f.views.Grid1_DblClick(2, 0);
  EXPECT_EQ(onItem.command, ViewCommand::ModifySchedule);
  EXPECT_EQ(onItem.row, 0);
  EXPECT_EQ(f.views.Grid1_DblClick(2, 1).command, ViewCommand::AddSchedule);
  EXPECT_EQ(f.views.Grid1_DblClick(3, 0).command, ViewCommand::AddSchedule);
  EXPECT_EQ(f.views.Cell_DblClick(3).command, ViewCommand::AddSchedule);
}

}  // namespace
}  // namespace sched
