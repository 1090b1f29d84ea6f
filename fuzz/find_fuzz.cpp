// Feeds arbitrary bytes to the search: every line but the last an item (title, place and memo,
// tab-separated; every third one a series of three dates), the last line what is typed. The
// search must find exactly the live items whose folded texts hold every folded word, each once
// and by date, whatever the bytes (texts that are no UTF-8 among them).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "find/find_model.h"
#include "find/folded_texts.h"
#include "find/text_fold.h"
#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "store/alarm_hooks.h"
#include "store/schedule_store.h"

namespace {

std::vector<std::string_view> Split(std::string_view text, char at) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find(at, start);
    parts.push_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

void Check(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  const std::vector<std::string_view> lines =
      Split(std::string_view(reinterpret_cast<const char*>(data), size), '\n');
  if (lines.size() > 200) return 0;
  ScheduleDocument doc;
  NoAlarmHooks alarms;
  SilentProgress progress;
  SystemClock clock;
  ScheduleStore store(doc, {alarms, progress, clock});
  store.ClearIndex();
  std::set<std::string> expected;  // the titles of the items that must be found
  const std::vector<std::string> words = QueryWords(lines.back());
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const std::vector<std::string_view> fields = Split(lines[i], '\t');
    SchRecord r;
    r.Title = "#" + std::to_string(i) + " " + std::string(fields[0]);
    r.Place = fields.size() > 1 ? fields[1] : "";
    r.Memo = fields.size() > 2 ? fields[2] : "";
    r.Stamp = static_cast<std::int32_t>(0xC0000000u + i);
    const bool series = i % 3 == 2;
    const int days = series ? 3 : 1;
    if (series) {
      r.RepeatKind = 0x0800;  // daily
      r.ParentSubNo = 1;
      r.ParentStamp = r.Stamp;
    }
    for (int day = 0; day < days; ++day) {
      SetStartDate(r, {2026, 1 + static_cast<int>(i % 12), 1 + day + static_cast<int>(i % 20)});
      SetEndDate(r, {r.Year, r.Month, r.Day});
      r.SubNo = static_cast<std::int16_t>(series ? day + 1 : 0);
      store.InsertRecord(r);
    }
    // The first item is deleted and must never be found.
    if (i == 0) {
      store.DeleteItem(r);
      continue;
    }
    std::string joined;
    // The fields hold no tab, which the table would have made a blank.
    for (const std::string* field : {&r.Title, &r.Place, &r.Memo}) {
      joined += FoldedTexts::kFieldMark;
      joined += *field;
    }
    const std::string folded = FoldForSearch(joined);
    bool all = !words.empty();
    for (const std::string& word : words) all = all && folded.find(word) != std::string::npos;
    if (all) expected.insert(r.Title);
  }
  FindModel model(doc.Tables);
  std::set<std::string> found;
  std::int32_t last = 0;
  for (const FindResult& result : model.Search({std::string(lines.back())})) {
    const SchDatRow& row = doc.Tables.SchDatList.At(result.row);
    Check(row.IsLive());
    Check(result.dateCode >= last);
    last = result.dateCode;
    Check(found.insert(std::string(doc.Tables.SchDatList.Texts(row).Title)).second);
  }
  Check(found == expected);
  return 0;
}
