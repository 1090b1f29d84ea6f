#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace sched {

// A series is the set of rows that share ParentSubNo and ParentStamp.
struct SeriesKey {
  std::int32_t parentSubNo = 0;
  std::int32_t parentStamp = 0;
  friend bool operator==(const SeriesKey&, const SeriesKey&) = default;
  // Both numbers in one, ordered as the pair.
  std::uint64_t Packed() const {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(parentSubNo)) << 32 |
           static_cast<std::uint32_t>(parentStamp);
  }
};

struct SeriesKeyHash {
  std::size_t operator()(const SeriesKey& key) const {
    return std::hash<std::uint64_t>{}(key.Packed());
  }
};

// The rows of a table by a key of theirs, deleted rows included. Rows of SchDatList are only
// ever appended while the document is open, so the index takes in new rows as it is asked and
// starts anew only when the table was changed in another way.
template <typename Key, typename Hash = std::hash<Key>>
class RowIndex {
 public:
  // Brings the index up to the table's rows; `keyOf(row)` gives a row's key.
  template <typename Table, typename KeyOf>
  void Sync(const Table& table, KeyOf keyOf) {
    if (table.Edits() != edits_) {
      rows_.clear();
      indexed_ = 0;
      edits_ = table.Edits();
    }
    if (table.IsEmpty()) return;
    for (; indexed_ < table.Rows(); ++indexed_)
      rows_[keyOf(table.At(indexed_))].push_back(indexed_);
  }

  const std::vector<int>& RowsOf(const Key& key) const {
    static const std::vector<int> kNone;
    const auto it = rows_.find(key);
    return it == rows_.end() ? kNone : it->second;
  }

 private:
  std::unordered_map<Key, std::vector<int>, Hash> rows_;
  int indexed_ = 0;
  std::uint64_t edits_ = ~std::uint64_t{0};
};

// The rows of each series.
using SeriesIndex = RowIndex<SeriesKey, SeriesKeyHash>;
// The rows that hold each Stamp.
using StampIndex = RowIndex<std::int32_t>;

}  // namespace sched
