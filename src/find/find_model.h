#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "find/folded_texts.h"
#include "store/sch_tables.h"

namespace sched {

// What the user looks for: words, all of which must be found, each in any of the title, the
// place or the memo; and the dates to look in, the whole calendar unless told.
struct FindQuery {
  std::string text;
  std::int32_t fromCode = DateCode(kFirstYear, 1, 1);
  std::int32_t toCode = DateCode(kLastYear, 12, 31);
};

// One item found: a plain item, a series or an item over several days, listed once.
struct FindResult {
  int row = -1;               // the SchDatList row of the first date listed
  std::int32_t dateCode = 0;  // that date, the item's first in the range
  std::int16_t startTime = -1;
  int count = 0;  // the item's live rows, in the range or not
};

// The search over the open schedule, as the find panel and scltool find run it. The model
// keeps a folded copy of the texts that follows the tables (see FoldedTexts); Search and
// Refresh bring it up to date first, so the results always show the tables as they are.
class FindModel {
 public:
  explicit FindModel(const SchDatCTL& tables) : tables_(tables) {}

  // The items whose texts hold every word of the query and that have a live row in its dates,
  // by their first date there, then time. No words find nothing.
  const std::vector<FindResult>& Search(const FindQuery& query);
  // The last search again, after the schedule changed.
  const std::vector<FindResult>& Refresh() { return Search(query_); }

  const std::vector<FindResult>& Results() const { return results_; }
  const FindQuery& Query() const { return query_; }
  // The folded words of the last query.
  const std::vector<std::string>& Words() const { return words_; }
  const SchDatCTL& Tables() const { return tables_; }
  // The bytes of the folded copy.
  std::size_t CopyBytes() const { return copy_.MemoryBytes(); }

 private:
  const SchDatCTL& tables_;
  FoldedTexts copy_;
  FindQuery query_;
  std::vector<std::string> words_;
  std::vector<FindResult> results_;
};

// The folded words of a query's text, split at blanks.
std::vector<std::string> QueryWords(std::string_view text);

}  // namespace sched
