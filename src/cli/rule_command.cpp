#include <cctype>
#include <cstdint>
#include <optional>

#include "appointments/repeat_model.h"
#include "appointments/repeat_rule.h"
#include "cli/cli_args.h"
#include "cli/json_text.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "core/number_text.h"
#include "platform/std/console.h"

namespace sched {
namespace {

// A word as the file holds it (signed) or as it is packed (unsigned, or 0x and hex digits).
std::uint16_t RequireWord(const std::string& text) {
  const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  const std::optional<int> value = !hex ? ParseInt(text, 10, INT16_MIN, UINT16_MAX)
                                   : std::isxdigit(static_cast<unsigned char>(text[2]))
                                       ? ParseInt(std::string_view(text).substr(2), 16, 0, 0xFFFF)
                                       : std::nullopt;
  if (!value) {
    throw UsageError("WORD takes a number from -32768 to 65535 or from 0x0 to 0xFFFF, not " + text);
  }
  return static_cast<std::uint16_t>(*value);
}

template <typename T>
void Field(std::ostream& out, const char* name, const std::optional<T>& value) {
  out << ",\"" << name << "\":";
  if (value) {
    out << std::boolalpha << *value;
  } else {
    out << "null";
  }
}

// The Label2 sentence of the dialog opened on the rule, with that start and count.
std::string OpenedSentence(std::uint16_t word, const CivilDate& start, int count,
                           std::ostream& err) {
  RepeatWork work;
  work.WorkRepeatKind = word;
  work.Decode(word);
  const bool repeats = work.RepeatCode != kCodeNone && work.RepeatCode != kCodeOverDays;
  work.RepeatFree = repeats ? 0 : -1;
  work.RepeatCount = static_cast<std::int16_t>(count);
  StreamMessages messages(err);
  const IsoDateFormatter dates;
  RepeatModel model(work, messages, dates);
  model.Open(start);
  return model.Controls().Label2;
}

// What a rule word holds, as one line of JSON, and, given a start date and a count, the
// sentence the repeat dialog shows when it opens on that rule; a message the dialog shows
// meanwhile goes to `err`.
int RunRule(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, CodePage) {
  RequireArguments(args, {"WORD"}, {"YYYY/MM/DD", "COUNT"});
  const std::uint16_t word = RequireWord(args[0]);
  const std::optional<CivilDate> start =
      args.size() == 3 ? std::optional(RequireDate(args[1])) : std::nullopt;
  const int count = args.size() == 3 ? RequireInt("COUNT", args[2], 1, INT16_MAX) : 0;

  const DecodedRepeatKind d = DecodeRepeatKind(word);
  const std::optional<WeekdayRule> byWeekday = SplitWeekdayRule(word);
  const bool monthByDate = d.code == kCodeMonthly;
  const bool yearByDate = d.code == kCodeYearly;
  const bool hasMonth = yearByDate || d.code == kCodeYearlyWeekday;
  out << "{\"code\":" << d.code;
  Field(out, "option", d.option);
  Field(out, "intervalField", d.intervalField);
  Field(out, "ordinal", d.ordinal);
  Field(out, "isLast", d.isLast);
  Field(out, "weekday", byWeekday ? std::optional<int>(byWeekday->weekday) : std::nullopt);
  Field(out, "day",
        monthByDate || yearByDate ? std::optional<int>((word >> 1) & 31) : std::nullopt);
  Field(out, "month", hasMonth ? std::optional<int>((word >> 6) & 15) : std::nullopt);
  if (start) out << ",\"sentence\":" << JsonString(OpenedSentence(word, *start, count, err));
  out << "}\n";
  return kExitDone;
}

}  // namespace

const Verb kRuleVerb{"rule", "WORD [YYYY/MM/DD COUNT]",
                     "what a repeat rule word holds, and the repeat dialog's sentence", RunRule};

}  // namespace sched
