#include "holidays/country_file.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/calendar.h"
#include "core/text_case.h"
#include "holidays/rule_tokens.h"

namespace sched {

using namespace rule_tokens;

bool RuleSpan::Covers(int year, int month, int day) const {
  const std::int32_t code = DateCode(year, month, day);
  if (code < firstDate || code > lastDate) return false;
  for (int skipped : exceptYears) {
    if (skipped == year) return false;
  }
  return true;
}

namespace {

// The words of one line before its '=', consumed from the front.
class Words {
 public:
  explicit Words(std::string_view head) : words_(SplitWords(head)) {}

  bool Done() const { return next_ == words_.size(); }
  std::string_view Take(std::string_view needed) {
    if (Done()) Fail("missing " + std::string(needed));
    return words_[next_++];
  }

 private:
  std::vector<std::string_view> words_;
  std::size_t next_ = 0;
};

// The optional words that follow the date of a rule.
struct Options {
  RuleSpan span;
  Observance observance = Observance::kNone;
};

Observance ParseObservance(std::string_view text) {
  const std::string mode = ToLowerAscii(text);
  if (mode == "nearest") return Observance::kNearestWeekday;
  if (mode == "monday") return Observance::kSundayToMonday;
  if (mode == "next-weekday") return Observance::kNextWeekday;
  Fail("unknown observance " + Quoted(text));
}

Options ParseOptions(Words& words, bool observeAllowed) {
  Options options;
  bool seenFrom = false, seenUntil = false, seenExcept = false, seenObserve = false;
  auto once = [](bool& seen, std::string_view option) {
    if (seen) Fail(Quoted(option) + " given twice");
    seen = true;
  };
  while (!words.Done()) {
    const std::string option = ToLowerAscii(words.Take("option"));
    if (option == "from") {
      once(seenFrom, option);
      options.span.firstDate = ParseBound(words.Take("year after 'from'"), false);
    } else if (option == "until") {
      once(seenUntil, option);
      options.span.lastDate = ParseBound(words.Take("year after 'until'"), true);
    } else if (option == "except") {
      once(seenExcept, option);
      options.span.exceptYears = ParseYearList(words.Take("years after 'except'"));
    } else if (option == "observe" && observeAllowed) {
      once(seenObserve, option);
      options.observance = ParseObservance(words.Take("observance after 'observe'"));
    } else {
      Fail("unknown option " + Quoted(option));
    }
  }
  if (options.span.firstDate > options.span.lastDate) Fail("'from' is later than 'until'");
  return options;
}

// Fills the date fields of `rule` from the words after its keyword; false for no such keyword.
bool ParseRuleDate(const std::string& keyword, Words& words, HolidayRule& rule) {
  if (keyword == "fixed") {
    const MonthDay md = ParseMonthDay(words.Take("month-day after 'fixed'"));
    rule.kind = RuleKind::kFixed;
    rule.month = md.month;
    rule.day = md.day;
  } else if (keyword == "once") {
    const CivilDate date = ParseDate(words.Take("date after 'once'"));
    rule.kind = RuleKind::kOnce;
    rule.year = date.year;
    rule.month = date.month;
    rule.day = date.day;
  } else if (keyword == "nth" || keyword == "last") {
    rule.kind = keyword == "nth" ? RuleKind::kNthWeekday : RuleKind::kLastWeekday;
    if (keyword == "nth") rule.nth = ParseNumber(words.Take("count after 'nth'"), 1, 5, "count");
    rule.weekday = ParseWeekday(words.Take("weekday"));
    rule.month = ParseMonth(words.Take("month"));
  } else if (keyword == "easter") {
    rule.kind = RuleKind::kEaster;
    rule.offset = ParseSigned(words.Take("day offset after 'easter'"), -300, 300, "offset");
  } else if (keyword == "equinox") {
    const std::string which = ToLowerAscii(words.Take("'march' or 'september' after 'equinox'"));
    if (which != "march" && which != "september") Fail("unknown equinox " + Quoted(which));
    rule.kind = RuleKind::kEquinox;
    rule.month = which == "march" ? 3 : 9;
  } else if (keyword == "before" || keyword == "after") {
    rule.kind = keyword == "before" ? RuleKind::kWeekdayBefore : RuleKind::kWeekdayAfter;
    rule.weekday = ParseWeekday(words.Take("weekday"));
    const MonthDay md = ParseMonthDay(words.Take("month-day"));
    rule.month = md.month;
    rule.day = md.day;
  } else {
    return false;
  }
  return true;
}

std::string CheckedName(std::string_view text) {
  const std::string_view name = Trim(text);
  if (name.empty()) Fail("missing name after '='");
  if (name.size() > kMaxHolidayNameBytes) {
    Fail("name longer than " + std::to_string(kMaxHolidayNameBytes) + " bytes");
  }
  return std::string(name);
}

void ParseLine(std::string_view line, CountryFile& file) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) Fail("missing '=' before the name");
  const std::string_view tail = line.substr(equals + 1);
  const std::size_t bar = tail.find('|');
  const std::string name = CheckedName(tail.substr(0, bar));
  const std::string observedName =
      bar == std::string_view::npos ? std::string() : CheckedName(tail.substr(bar + 1));
  if (observedName.find('|') != std::string::npos) Fail("more than one '|'");

  Words words(line.substr(0, equals));
  const std::string keyword = ToLowerAscii(words.Take("keyword"));
  HolidayRule rule;
  if (ParseRuleDate(keyword, words, rule)) {
    const Options options = ParseOptions(words, true);
    if (bar != std::string_view::npos && options.observance == Observance::kNone) {
      Fail("a second name after '|' needs 'observe'");
    }
    rule.span = options.span;
    rule.observance = options.observance;
    rule.name = name;
    rule.observedName = observedName;
    file.rules.push_back(std::move(rule));
    return;
  }
  if (bar != std::string_view::npos) Fail("'|' belongs to holiday rules only");
  if (keyword == "substitute") {
    const std::string mode =
        ToLowerAscii(words.Take("'next-day' or 'next-free' after 'substitute'"));
    if (mode != "next-day" && mode != "next-free") Fail("unknown substitute mode " + Quoted(mode));
    file.substitutes.push_back(
        {mode == "next-day" ? SubstituteMode::kNextDay : SubstituteMode::kNextFree,
         ParseOptions(words, false).span, name});
  } else if (keyword == "bridge") {
    file.bridges.push_back({ParseOptions(words, false).span, name});
  } else {
    Fail("unknown keyword " + Quoted(keyword));
  }
}

void CheckText(std::string_view line) {
  for (char c : line) {
    if (static_cast<unsigned char>(c) < 0x20 && c != '\t') Fail("control character in the text");
  }
}

// The length of the line break at `pos` (CR LF, CR or LF), 0 at the end of the text.
std::size_t BreakLength(std::string_view bytes, std::size_t pos) {
  if (pos >= bytes.size()) return 0;
  return bytes.compare(pos, 2, "\r\n") == 0 ? 2 : 1;
}

}  // namespace

bool ParseCountryFile(std::string_view bytes, CountryFile& file, CountryFileError& error) {
  file = CountryFile{};
  error = CountryFileError{};
  if (bytes.empty()) {
    error.message = "empty file";
    return false;
  }
  int lineNumber = 1;
  try {
    std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const std::string_view title = bytes.substr(0, end);
    CheckText(title);
    if (Trim(title).empty()) Fail("no title on the first line");
    file.title = std::string(title);
    for (std::size_t pos = end + BreakLength(bytes, end); pos < bytes.size();
         pos = end + BreakLength(bytes, end)) {
      ++lineNumber;
      end = std::min(bytes.find_first_of("\r\n", pos), bytes.size());
      const std::string_view line = Trim(bytes.substr(pos, end - pos));
      CheckText(line);
      if (line.empty() || line[0] == ';' || line[0] == '#') continue;
      ParseLine(line, file);
    }
  } catch (const SyntaxError& e) {
    file = CountryFile{};
    error = CountryFileError{lineNumber, e.message};
    return false;
  }
  return true;
}

bool LoadCountryFile(const std::string& path, CountryFile& file, CountryFileError& error) {
  file = CountryFile{};
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    error = CountryFileError{0, "no such file"};
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  std::string bytes;
  bytes.resize(kMaxCountryFileBytes + 1);
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (in.bad() || (!in && !in.eof())) {
    error = CountryFileError{0, "cannot read the file"};
    return false;
  }
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  if (bytes.size() > kMaxCountryFileBytes) {
    error =
        CountryFileError{0, "file larger than " + std::to_string(kMaxCountryFileBytes) + " bytes"};
    return false;
  }
  return ParseCountryFile(bytes, file, error);
}

}  // namespace sched
