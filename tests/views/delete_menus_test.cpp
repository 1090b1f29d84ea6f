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
  f.s.doc.Tables.SchDatList.Edit(0).Deleted = kDeleted;
  EXPECT_FALSE(HasDataAfter(f.s.doc.Tables, {2010, 6, 1}));
  EXPECT_FALSE(YearHasData(f.s.doc.Tables, 2010));
  EXPECT_FALSE(MonthHasLiveData(f.s.doc.Tables, 2010, 6));
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

}  // namespace
}  // namespace sched
