#pragma once

#include <cstdint>
#include <iterator>

#include "store/sch_tables.h"
#include "store/table.h"

namespace sched {

// The rows of a chain linked through a field of each row, for use in range-for. The walk ends
// at the link -1, at a link outside the table, and after as many rows as the table holds, so
// that a damaged chain that loops cannot hang it. The link is read when the walk moves on, so
// the body may change rows but should not change the link of the row it stands on.
template <typename Row, std::int32_t Row::*Link>
class Chain {
 public:
  Chain(const Table<Row>& table, int first) : table_(table), first_(first) {}

  class Iterator {
   public:
    Iterator(const Table<Row>& table, int row) : table_(&table), row_(row), left_(table.Rows()) {}
    int operator*() const { return row_; }
    Iterator& operator++() {
      row_ = table_->At(row_).*Link;
      --left_;
      return *this;
    }
    bool operator==(std::default_sentinel_t) const {
      return row_ < 0 || row_ >= table_->Rows() || left_ <= 0;
    }

   private:
    const Table<Row>* table_;
    int row_;
    int left_;  // rows that may still come
  };

  Iterator begin() const { return Iterator(table_, first_); }
  std::default_sentinel_t end() const { return {}; }

 private:
  const Table<Row>& table_;
  int first_;
};

// The rows of a day in SchDatList, from the day's head along `Next`.
using DayChain = Chain<SchDatRow, &SchDatRow::Next>;
// The month rows of a year in AncMM, from the year's `FirstMonth` along `NextMonth`.
using MonthChain = Chain<AncMMRow, &AncMMRow::NextMonth>;

}  // namespace sched
