#include "find/find_line.h"

#include "appointments/repeat_rule.h"
#include "core/time_text.h"
#include "find/text_fold.h"
#include "store/sch_record.h"

namespace sched {
namespace {

std::string TimeText(int minutes) {
  return TwelveHourTime(minutes / 60, minutes % 60, false, "am", "pm");
}

bool HoldsAnyWord(std::string_view text, const std::vector<std::string>& words) {
  const std::string folded = FoldForSearch(text);
  for (const std::string& word : words) {
    if (folded.find(word) != std::string::npos) return true;
  }
  return false;
}

std::string FirstLineWithWord(std::string_view memo, const std::vector<std::string>& words) {
  for (std::size_t at = 0; at <= memo.size();) {
    std::size_t end = memo.find_first_of("\r\n", at);
    if (end == std::string_view::npos) end = memo.size();
    const std::string_view line = memo.substr(at, end - at);
    if (HoldsAnyWord(line, words)) return std::string(line);
    at = end + (memo.compare(end, 2, "\r\n") == 0 ? 2 : 1);
  }
  return {};
}

std::string Plural(int count, const char* unit) {
  return count == 1 ? std::string(unit) : std::to_string(count) + " " + unit + "s";
}

// "every 2 weeks, 10 times" for a series, "over 3 days" for an item over several days.
std::string RepeatsText(std::int16_t repeatKind, int count) {
  if (repeatKind == 0) return {};
  if (repeatKind == kMultiDayKind) return "over " + Plural(count, "day");
  const DecodedRepeatKind rule = DecodeRepeatKind(static_cast<std::uint16_t>(repeatKind));
  const int every = rule.intervalField.value_or(0) + 1;
  std::string text = "every ";
  switch (rule.option.value_or(kOptionDaily)) {
    case kOptionWeekly: text += Plural(every, "week"); break;
    case kOptionMonthly: text += Plural(every, "month"); break;
    case kOptionYearly: text += Plural(every, "year"); break;
    case kOptionMonthlyWeekday: text += Plural(every, "month") + " by weekday"; break;
    case kOptionYearlyWeekday: text += Plural(every, "year") + " by weekday"; break;
    default: text += Plural(every, "day"); break;
  }
  return text + ", " + (count == 1 ? std::string("once") : std::to_string(count) + " times");
}

}  // namespace

FindLine DescribeResult(const FindModel& model, const FindResult& result) {
  const SchDatTable& list = model.Tables().SchDatList;
  const SchDatRow& row = list.At(result.row);
  const RowTexts texts = list.Texts(row);
  const std::vector<std::string>& words = model.Words();
  FindLine line;
  line.date = DateOfCode(result.dateCode);
  line.time = row.StartTime < 0 ? "Allday" : TimeText(row.StartTime) + "-" + TimeText(row.EndTime);
  line.title = texts.Title;
  line.place = texts.Place;
  if (HoldsAnyWord(texts.Title, words)) line.foundIn |= kFoundInTitle;
  if (HoldsAnyWord(texts.Place, words)) line.foundIn |= kFoundInPlace;
  if (HoldsAnyWord(texts.Memo, words)) {
    line.foundIn |= kFoundInMemo;
    line.memoLine = FirstLineWithWord(texts.Memo, words);
  }
  line.repeats = RepeatsText(row.RepeatKind, result.count);
  return line;
}

std::string FoundText(const FindLine& line) {
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
  if (line.foundIn & kFoundInTitle) add("Title");
  if (line.foundIn & kFoundInPlace) add("Place");
  if (line.foundIn & kFoundInMemo) add("Memo: " + line.memoLine);
  return text;
}

}  // namespace sched
