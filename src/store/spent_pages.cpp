#include "store/spent_pages.h"

#include <algorithm>
#include <bit>

#include "platform/std/memory_pages.h"

namespace sched {

SpentPages::SpentPages(std::uint8_t* owned, std::size_t size)
    : bytes_(owned), page_(MemoryPageSize()), shift_(std::countr_zero(page_)) {
  if (owned == nullptr) return;
  const auto start = reinterpret_cast<std::uintptr_t>(owned);
  head_ = std::min(size, (page_ - start % page_) % page_);
  read_.assign((size - head_) / page_, 0);
}

void SpentPages::Read(std::size_t first, std::size_t last) {
  if (read_.empty() || last <= head_) return;
  first = std::max(first, head_) - head_;
  last -= head_;
  if (const std::size_t page = first >> shift_; page == (last - 1) >> shift_) {
    // Most parts lie on one page.
    if (page < read_.size() && (read_[page] += static_cast<std::uint32_t>(last - first)) == page_) {
      spent_.push_back(page);
    }
    return;
  }
  for (std::size_t page = first >> shift_; page < read_.size() && page * page_ < last; ++page) {
    const std::size_t from = std::max(first, page * page_);
    const std::size_t to = std::min(last, (page + 1) * page_);
    read_[page] += static_cast<std::uint32_t>(to - from);
    if (read_[page] == page_) spent_.push_back(page);
  }
}

void SpentPages::Release() {
  std::sort(spent_.begin(), spent_.end());
  for (std::size_t i = 0; i < spent_.size();) {
    std::size_t end = i + 1;
    while (end < spent_.size() && spent_[end] == spent_[end - 1] + 1) ++end;
    ReleaseMemoryPages(bytes_ + head_ + spent_[i] * page_, (end - i) * page_);
    i = end;
  }
  spent_.clear();
}

}  // namespace sched
