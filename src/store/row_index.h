#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>
#include <unordered_map>
#include <vector>

#include "core/radix_sort.h"

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

// Rows in ascending order, as two runs: rows of a sorted index and rows added since.
class RowList {
 public:
  RowList(std::span<const int> first, std::span<const int> second)
      : first_(first), second_(second) {}

  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = int;
    using difference_type = std::ptrdiff_t;
    using pointer = const int*;
    using reference = const int&;
    Iterator() = default;
    Iterator(const RowList* list, std::size_t at) : list_(list), at_(at) {}
    const int& operator*() const {
      const std::size_t firsts = list_->first_.size();
      return at_ < firsts ? list_->first_[at_] : list_->second_[at_ - firsts];
    }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    Iterator operator++(int) {
      Iterator was = *this;
      ++at_;
      return was;
    }
    friend bool operator==(const Iterator&, const Iterator&) = default;

   private:
    const RowList* list_ = nullptr;
    std::size_t at_ = 0;
  };

  Iterator begin() const { return {this, 0}; }
  Iterator end() const { return {this, size()}; }
  std::size_t size() const { return first_.size() + second_.size(); }
  bool empty() const { return size() == 0; }

 private:
  std::span<const int> first_;
  std::span<const int> second_;
};

// The rows of a table by a key of theirs, deleted rows included. Rows of SchDatList are only
// ever appended while the document is open, so the index takes in new rows as it is asked and
// starts anew only when the table was changed in another way. The rows are kept sorted by key
// in two flat arrays; rows added since the last sort wait in a small map until there are enough
// of them to sort in, so that a table of many rows costs 12 bytes a row and no allocation each.
// KeyBits gives a key as 64 bits that order it.
template <typename Key, typename KeyBits>
class RowIndex {
 public:
  // Brings the index up to the table's rows; `keyOf(row)` gives a row's key.
  template <typename Table, typename KeyOf>
  void Sync(const Table& table, KeyOf keyOf) {
    if (table.Edits() != edits_) {
      keys_.clear();
      rows_.clear();
      added_.clear();
      addedRows_ = 0;
      indexed_ = 0;
      edits_ = table.Edits();
    }
    if (table.IsEmpty()) return;
    const int rows = table.Rows();
    // Sorting everything again costs as much as the rows that came since, at most.
    if (rows - indexed_ > static_cast<int>(keys_.size() / 8 + 1024)) {
      SortIn(table, keyOf, rows);
      return;
    }
    for (; indexed_ < rows; ++indexed_) {
      added_[KeyBits{}(keyOf(table.At(indexed_)))].push_back(indexed_);
      ++addedRows_;
    }
    if (addedRows_ > keys_.size() / 8 + 1024) SortIn(table, keyOf, rows);
  }

  RowList RowsOf(const Key& key) const {
    const std::uint64_t bits = KeyBits{}(key);
    const auto [from, to] = std::equal_range(keys_.begin(), keys_.end(), bits);
    const std::span<const int> sorted(rows_.data() + (from - keys_.begin()),
                                      static_cast<std::size_t>(to - from));
    const auto added = added_.find(bits);
    return {sorted, added == added_.end() ? std::span<const int>() : added->second};
  }

 private:
  template <typename Table, typename KeyOf>
  void SortIn(const Table& table, KeyOf keyOf, int rows) {
    std::vector<std::pair<std::uint64_t, int>> entries;
    entries.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
      entries.emplace_back(KeyBits{}(keyOf(table.At(row))), row);
    }
    RadixSort(entries, [](const auto& entry) { return entry.first; });
    keys_.resize(entries.size());
    rows_.resize(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
      keys_[i] = entries[i].first;
      rows_[i] = entries[i].second;
    }
    added_.clear();
    addedRows_ = 0;
    indexed_ = rows;
  }

  std::vector<std::uint64_t> keys_;  // sorted
  std::vector<int> rows_;            // the row of each key, ascending among equal keys
  std::unordered_map<std::uint64_t, std::vector<int>> added_;
  std::size_t addedRows_ = 0;
  int indexed_ = 0;
  std::uint64_t edits_ = ~std::uint64_t{0};
};

struct SeriesKeyBits {
  std::uint64_t operator()(const SeriesKey& key) const { return key.Packed(); }
};
struct StampBits {
  std::uint64_t operator()(std::int32_t stamp) const { return static_cast<std::uint32_t>(stamp); }
};

// The rows of each series.
using SeriesIndex = RowIndex<SeriesKey, SeriesKeyBits>;
// The rows that hold each Stamp.
using StampIndex = RowIndex<std::int32_t, StampBits>;

}  // namespace sched
