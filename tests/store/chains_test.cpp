#include "store/chains.h"

#include <gtest/gtest.h>

#include <vector>

namespace sched {
namespace {

// A SchDatList whose rows link as `links` says: row i's Next is links[i].
Table<SchDatRow> DayList(const std::vector<int>& links) {
  Table<SchDatRow> list;
  for (int link : links) {
    SchDatRow row;
    row.Next = link;
    list.Put(row);
  }
  return list;
}

std::vector<int> Walk(const Table<SchDatRow>& list, int head) {
  std::vector<int> rows;
  for (int row : DayChain(list, head)) rows.push_back(row);
  return rows;
}

TEST(DayChain, StopsAtTheEndAtABadLinkAndAfterEveryRowOnce) {
  struct Case {
    const char* what;
    std::vector<int> links;
    int head;
    std::vector<int> rows;
  };
  const Case cases[] = {
      {"no head", {-1, -1}, -1, {}},
      {"one row", {-1}, 0, {0}},
      {"a chain in any row order", {-1, 3, 0, 0}, 1, {1, 3, 0}},
      {"a head past the end", {-1, -1}, 2, {}},
      {"a link past the end", {1, 7, -1}, 0, {0, 1}},
      {"a link below -1", {1, -5}, 0, {0, 1}},
      {"a row linking to itself", {0, -1}, 0, {0, 0}},
      {"a loop", {1, 2, 0}, 1, {1, 2, 0}},
      {"a loop behind the head", {1, 2, 1}, 0, {0, 1, 2}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Walk(DayList(c.links), c.head), c.rows) << c.what;
  }
}

}  // namespace
}  // namespace sched
