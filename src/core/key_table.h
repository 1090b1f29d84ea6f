#pragma once

#include <cstdint>
#include <vector>

namespace sched {

// The number of each of a set of distinct 64-bit keys (its place in the list given), found in an
// open table of at least twice as many places, so that a key of none mostly meets an empty place
// at once.
class KeyTable {
 public:
  explicit KeyTable(std::vector<std::uint64_t> keys) : keys_(std::move(keys)) {
    while ((std::size_t{1} << bits_) < 2 * keys_.size()) ++bits_;
    places_.assign(std::size_t{1} << bits_, -1);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      std::size_t at = Place(keys_[i]);
      while (places_[at] != -1) at = Next(at);
      places_[at] = static_cast<int>(i);
    }
  }

  std::size_t Size() const { return keys_.size(); }
  // The key's number; -1 for a key not in the set.
  int Find(std::uint64_t key) const {
    std::size_t at = Place(key);
    while (places_[at] != -1 && keys_[static_cast<std::size_t>(places_[at])] != key) at = Next(at);
    return places_[at];
  }

 private:
  std::size_t Place(std::uint64_t key) const {
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15) >> (64 - bits_));
  }
  std::size_t Next(std::size_t at) const { return (at + 1) & (places_.size() - 1); }

  std::vector<std::uint64_t> keys_;
  unsigned bits_ = 1;
  std::vector<int> places_;
};

}  // namespace sched
