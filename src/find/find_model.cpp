#include "find/find_model.h"

#include <algorithm>
#include <unordered_map>

#include "find/text_fold.h"

namespace sched {
namespace {

// The identity of the item a row shows: the rows of a series or of an item over several days
// share their series and Stamp, a plain item's rows its SubNo and Stamp.
struct ItemKey {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
  friend bool operator==(const ItemKey&, const ItemKey&) = default;
};

struct ItemKeyHash {
  std::size_t operator()(const ItemKey& key) const {
    return std::hash<std::uint64_t>{}(key.high * 0x9E3779B97F4A7C15ull ^ key.low);
  }
};

ItemKey KeyOf(const SchDatRow& row) {
  const auto stamp = static_cast<std::uint32_t>(row.Stamp);
  if (row.RepeatKind != 0) return {row.Series().Packed(), std::uint64_t{1} << 32 | stamp};
  return {SeriesKey{row.SubNo, row.Stamp}.Packed(), 0};
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::vector<std::string> QueryWords(std::string_view text) {
  std::vector<std::string> words;
  const std::string folded = FoldForSearch(text);
  for (std::size_t at = 0; at < folded.size();) {
    while (at < folded.size() && IsBlank(folded[at])) ++at;
    std::size_t end = at;
    while (end < folded.size() && !IsBlank(folded[end])) ++end;
    if (end > at) words.push_back(folded.substr(at, end - at));
    at = end;
  }
  return words;
}

const std::vector<FindResult>& FindModel::Search(const FindQuery& query) {
  query_ = query;
  words_ = QueryWords(query.text);
  results_.clear();
  const SchDatTable& list = tables_.SchDatList;
  copy_.Sync(list);
  std::unordered_map<ItemKey, std::size_t, ItemKeyHash> items;
  std::vector<FindResult> found;
  for (int at : copy_.RowsWithAll(words_)) {
    const SchDatRow& row = list.At(at);
    if (!row.IsLive()) continue;
    const auto [it, added] = items.try_emplace(KeyOf(row), found.size());
    if (added) found.emplace_back();
    FindResult& item = found[it->second];
    ++item.count;
    const std::int32_t code = row.StartCode();
    if (code < query.fromCode || code > query.toCode) continue;
    if (item.row == -1 || code < item.dateCode) {
      item.row = at;
      item.dateCode = code;
      item.startTime = row.StartTime;
    }
  }
  for (const FindResult& item : found) {
    if (item.row != -1) results_.push_back(item);
  }
  std::sort(results_.begin(), results_.end(), [](const FindResult& a, const FindResult& b) {
    if (a.dateCode != b.dateCode) return a.dateCode < b.dateCode;
    if (a.startTime != b.startTime) return a.startTime < b.startTime;
    return a.row < b.row;
  });
  return results_;
}

}  // namespace sched
