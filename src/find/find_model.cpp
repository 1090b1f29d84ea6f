#include "find/find_model.h"

#include <algorithm>

#include "find/text_fold.h"

namespace sched {
namespace {

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
  copy_.Sync(tables_);
  // Each item found, by its number in the copy.
  std::vector<FindResult> items(static_cast<std::size_t>(copy_.Items()));
  std::vector<int> found;
  for (int at : copy_.RowsWithAll(words_)) {
    const SchDatRow& row = list.At(at);
    if (!row.IsLive()) continue;
    FindResult& item = items[static_cast<std::size_t>(copy_.ItemOf(at))];
    if (item.count++ == 0) found.push_back(copy_.ItemOf(at));
    const std::int32_t code = row.StartCode();
    if (code < query.fromCode || code > query.toCode) continue;
    if (item.row == -1 || code < item.dateCode) {
      item.row = at;
      item.dateCode = code;
      item.startTime = row.StartTime;
    }
  }
  for (int item : found) {
    if (items[static_cast<std::size_t>(item)].row != -1)
      results_.push_back(items[static_cast<std::size_t>(item)]);
  }
  std::sort(results_.begin(), results_.end(), [](const FindResult& a, const FindResult& b) {
    if (a.dateCode != b.dateCode) return a.dateCode < b.dateCode;
    if (a.startTime != b.startTime) return a.startTime < b.startTime;
    return a.row < b.row;
  });
  return results_;
}

}  // namespace sched
