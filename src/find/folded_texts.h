#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/sch_tables.h"

namespace sched {

// A folded copy of the titles, places and memos of SchDatList, for a search that compares
// folded words with plain byte scans, and the item each row shows. It is built once per load
// and follows the table: rows are only ever appended while a document is open, so Sync takes
// in the new rows and the rows that took other texts; any other change of the table (a load,
// an emptied table) builds it anew. Rows with the same texts share one folded entry. Deleted
// rows stay in the copy: the search reads the Deleted mark from the table itself.
class FoldedTexts {
 public:
  // The separators of the copy, which no folded word holds.
  static constexpr char kEntryMark = '\x1e';
  static constexpr char kFieldMark = '\x1f';

  // Brings the copy up to the tables.
  void Sync(const SchDatCTL& tables);

  int Rows() const { return static_cast<int>(rowEntry_.size()); }
  // The item a row shows, numbered from 0: the rows of a series, or of an item over several
  // days, share one.
  int ItemOf(int row) const { return rowItem_[static_cast<std::size_t>(row)]; }
  int Items() const { return items_; }

  // The rows whose texts hold every one of the words (folded, none empty), in row order.
  std::vector<int> RowsWithAll(const std::vector<std::string>& words) const;

  // The bytes the copy takes in memory.
  std::size_t MemoryBytes() const;

 private:
  std::uint32_t AddEntry(const RowTexts& texts);
  std::string_view EntryText(std::uint32_t entry) const;
  int NewItemOf(const SchDatCTL& tables, int row) const;
  void Build(const SchDatCTL& tables);
  void Clear();

  std::string folded_;                        // every entry: kEntryMark, then its fields
  std::vector<std::uint32_t> entryStart_;     // where each entry starts in folded_
  std::vector<std::uint32_t> rowEntry_;       // the entry of each row
  std::vector<TextArena::Handle> rowHandle_;  // the texts each row's entry was folded from
  std::vector<std::int32_t> rowItem_;
  int items_ = 0;
  std::uint64_t edits_ = ~std::uint64_t{0};
  std::uint32_t unused_ = 0;  // entries left behind by rows that took other texts
};

}  // namespace sched
