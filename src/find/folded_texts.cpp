#include "find/folded_texts.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "find/text_fold.h"

namespace sched {
namespace {

bool SameTexts(const RowTexts& a, const RowTexts& b) {
  return a.Title == b.Title && a.Place == b.Place && a.Memo == b.Memo;
}

std::size_t HashOf(const RowTexts& texts) {
  const std::hash<std::string_view> hash;
  return hash(texts.Title) ^ hash(texts.Place) * 31 ^ hash(texts.Memo) * 1009;
}

}  // namespace

void FoldedTexts::Clear() {
  folded_.clear();
  entryStart_.clear();
  rowEntry_.clear();
  rowHandle_.clear();
  rowItem_.clear();
  items_ = 0;
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

// The item of an earlier row of the same identity, or none (-1): a series' rows share their
// series and Stamp, a plain item's rows their Stamp and SubNo.
int FoldedTexts::NewItemOf(const SchDatCTL& tables, int row) const {
  const SchDatTable& list = tables.SchDatList;
  const SchDatRow& r = list.At(row);
  const bool series = r.RepeatKind != 0;
  for (int other : series ? SeriesRows(tables, r.Series()) : StampRows(tables, r.Stamp)) {
    if (other >= row) break;
    const SchDatRow& o = list.At(other);
    if (series ? o.RepeatKind != 0 && o.Stamp == r.Stamp : o.RepeatKind == 0 && o.SubNo == r.SubNo)
      return rowItem_[static_cast<std::size_t>(other)];
  }
  return -1;
}

void FoldedTexts::Build(const SchDatCTL& tables) {
  const SchDatTable& list = tables.SchDatList;
  const int rows = list.IsEmpty() ? 0 : list.Rows();
  Clear();
  edits_ = list.Edits();
  rowEntry_.reserve(static_cast<std::size_t>(rows));
  rowHandle_.reserve(static_cast<std::size_t>(rows));
  rowItem_.reserve(static_cast<std::size_t>(rows));
  // The rows of a series each hold a copy of its texts: one folded entry serves them all.
  std::unordered_multimap<std::size_t, std::uint32_t> byTexts;
  std::vector<int> entryRow;
  for (int row = 0; row < rows; ++row) {
    const SchDatRow& r = list.At(row);
    const RowTexts texts = list.Texts(r);
    const std::size_t hash = HashOf(texts);
    std::uint32_t entry = ~std::uint32_t{0};
    for (auto [it, end] = byTexts.equal_range(hash); it != end; ++it) {
      if (SameTexts(list.Texts(entryRow[it->second]), texts)) entry = it->second;
    }
    if (entry == ~std::uint32_t{0}) {
      entry = AddEntry(texts);
      entryRow.push_back(row);
      byTexts.emplace(hash, entry);
    }
    rowEntry_.push_back(entry);
    rowHandle_.push_back(r.TextHandle);
    const int item = NewItemOf(tables, row);
    rowItem_.push_back(item >= 0 ? item : items_++);
  }
}

void FoldedTexts::Sync(const SchDatCTL& tables) {
  const SchDatTable& list = tables.SchDatList;
  const int rows = list.IsEmpty() ? 0 : list.Rows();
  // Rows that took other texts leave entries behind; past half of the copy it is built anew.
  if (list.Edits() != edits_ || rows < Rows() || unused_ > entryStart_.size() / 2) {
    Build(tables);
    return;
  }
  for (int row = 0; row < Rows(); ++row) {
    const auto at = static_cast<std::size_t>(row);
    const SchDatRow& r = list.At(row);
    if (r.TextHandle == rowHandle_[at]) continue;
    rowHandle_[at] = r.TextHandle;
    rowEntry_[at] = AddEntry(list.Texts(r));
    ++unused_;
  }
  if (rowEntry_.capacity() < static_cast<std::size_t>(rows)) {
    // Room for the rows of many edits to come, without doubling the copy's row vectors.
    const auto room = static_cast<std::size_t>(rows + rows / 16 + 256);
    rowEntry_.reserve(room);
    rowHandle_.reserve(room);
    rowItem_.reserve(room);
  }
  for (int row = Rows(); row < rows; ++row) {
    const SchDatRow& r = list.At(row);
    const RowTexts texts = list.Texts(r);
    // A new series comes as rows one after the other, each with a copy of the same texts.
    const bool sameAsLast = row > 0 && SameTexts(list.Texts(row - 1), texts);
    rowEntry_.push_back(sameAsLast ? rowEntry_.back() : AddEntry(texts));
    rowHandle_.push_back(r.TextHandle);
    const int item = NewItemOf(tables, row);
    rowItem_.push_back(item >= 0 ? item : items_++);
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
  std::uint32_t entry = 0;
  while (true) {
    const auto hit = std::search(from, all.end(), searcher);
    if (hit == all.end()) break;
    const auto place = static_cast<std::uint32_t>(hit - all.begin());
    // Hits come in order: the entry is found from the last one on.
    while (entry + 1 < entryStart_.size() && entryStart_[entry + 1] <= place) ++entry;
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
         rowHandle_.capacity() * sizeof(TextArena::Handle) +
         rowItem_.capacity() * sizeof(std::int32_t);
}

}  // namespace sched
