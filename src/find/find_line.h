#pragma once

#include <string>

#include "core/calendar.h"
#include "find/find_model.h"

namespace sched {

// Where the words of a search were found in an item.
inline constexpr int kFoundInTitle = 1;
inline constexpr int kFoundInPlace = 2;
inline constexpr int kFoundInMemo = 4;

// What the list of results shows of one item.
struct FindLine {
  CivilDate date;
  std::string time;  // "9:00am-10:30am", or "Allday", as the lists write it
  std::string title;
  std::string place;
  int foundIn = 0;       // kFoundInTitle | kFoundInPlace | kFoundInMemo
  std::string memoLine;  // the first line of the memo that holds a word, when it holds one
  std::string repeats;   // "every 2 weeks, 10 times", "over 3 days"; empty for a plain item
};

FindLine DescribeResult(const FindModel& model, const FindResult& result);

// "Title", "Place" and "Memo: LINE" of the fields that hold a word, joined by ", ".
std::string FoundText(const FindLine& line);

}  // namespace sched
