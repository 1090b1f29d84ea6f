#include "find/folded_texts.h"

#include <algorithm>
#include <functional>

#include "find/text_fold.h"

namespace sched {

void FoldedTexts::Clear() {
  folded_.clear();
  entryStart_.clear();
  rowEntry_.clear();
  rowHandle_.clear();
  unused_ = 0;
}

std::uint32_t FoldedTexts::AddEntry(const RowTexts& texts) {
  std::string joined;
  joined.reserve(texts.Title.size() + texts.Place.size() + texts.Memo.size() + 3);
  for (std::string_view field : {texts.Title, texts.Place, texts.Memo}) {
    joined += kFieldMark;
    joined += field;
  }
  entryStart_.push_back(static_cast<std::uint32_t>(folded_.size()));
  folded_ += kEntryMark;
  folded_ += FoldForSearch(joined);
  return static_cast<std::uint32_t>(entryStart_.size() - 1);
}

std::string_view FoldedTexts::EntryText(std::uint32_t entry) const {
  const std::size_t start = entryStart_[entry] + 1;
  const std::size_t end = entry + 1 < entryStart_.size() ? entryStart_[entry + 1] : folded_.size();
  return std::string_view(folded_).substr(start, end - start);
}

void FoldedTexts::Sync(const SchDatTable& list) {
  const int rows = list.IsEmpty() ? 0 : list.Rows();
  // Rows that took new texts leave entries behind; past half of the copy it is built anew.
  if (list.Edits() != edits_ || rows < Rows() || unused_ > entryStart_.size() / 2) {
    Clear();
    edits_ = list.Edits();
  }
  for (int row = 0; row < Rows(); ++row) {
    const auto at = static_cast<std::size_t>(row);
    const SchDatRow& r = list.At(row);
    if (r.TextHandle == rowHandle_[at]) continue;
    rowHandle_[at] = r.TextHandle;
    rowEntry_[at] = AddEntry(list.Texts(r));
    ++unused_;
  }
  rowEntry_.reserve(static_cast<std::size_t>(rows));
  rowHandle_.reserve(static_cast<std::size_t>(rows));
  for (int row = Rows(); row < rows; ++row) {
    const SchDatRow& r = list.At(row);
    // The rows of an item over several days share their texts: one entry serves them all.
    const bool sameAsLast = row > 0 && r.TextHandle == rowHandle_.back();
    rowEntry_.push_back(sameAsLast ? rowEntry_.back() : AddEntry(list.Texts(r)));
    rowHandle_.push_back(r.TextHandle);
  }
}

std::vector<int> FoldedTexts::RowsWithAll(const std::vector<std::string>& words) const {
  std::vector<int> rows;
  if (words.empty()) return rows;
  // The longest word is the rarest as a rule: the scan looks for it, the others are checked in
  // the entries it finds.
  const std::string& lead = *std::max_element(
      words.begin(), words.end(),
      [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
  std::vector<char> matched(entryStart_.size(), 0);
  const std::boyer_moore_horspool_searcher searcher(lead.begin(), lead.end());
  const std::string_view all(folded_);
  auto from = all.begin();
  while (true) {
    const auto hit = std::search(from, all.end(), searcher);
    if (hit == all.end()) break;
    const auto place = static_cast<std::uint32_t>(hit - all.begin());
    const auto entry = static_cast<std::uint32_t>(
        std::upper_bound(entryStart_.begin(), entryStart_.end(), place) - entryStart_.begin() - 1);
    const std::string_view text = EntryText(entry);
    matched[entry] = std::all_of(words.begin(), words.end(), [text](const std::string& word) {
      return text.find(word) != std::string_view::npos;
    });
    from = all.begin() + static_cast<std::ptrdiff_t>(entryStart_[entry] + 1 + text.size());
  }
  for (int row = 0; row < Rows(); ++row) {
    if (matched[rowEntry_[static_cast<std::size_t>(row)]]) rows.push_back(row);
  }
  return rows;
}

std::size_t FoldedTexts::MemoryBytes() const {
  return folded_.capacity() + entryStart_.capacity() * sizeof(std::uint32_t) +
         rowEntry_.capacity() * sizeof(std::uint32_t) +
         rowHandle_.capacity() * sizeof(TextArena::Handle);
}

}  // namespace sched
