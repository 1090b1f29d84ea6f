#include <cstdio>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/json_text.h"
#include "cli/verb.h"
#include "find/find_line.h"
#include "find/find_model.h"

namespace sched {
namespace {

std::string DateText(const CivilDate& date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", date.year % 10000, date.month % 100,
                date.day % 100);
  return text;
}

void WriteJson(const FindLine& line, int count, std::ostream& out) {
  out << "{\"date\":" << JsonString(DateText(line.date)) << ",\"time\":" << JsonString(line.time)
      << ",\"title\":" << JsonString(line.title) << ",\"place\":" << JsonString(line.place)
      << ",\"found\":[";
  const char* comma = "";
  for (const auto& [field, name] :
       {std::pair{kFoundInTitle, "title"}, {kFoundInPlace, "place"}, {kFoundInMemo, "memo"}}) {
    if ((line.foundIn & field) == 0) continue;
    out << comma << '"' << name << '"';
    comma = ",";
  }
  out << "],\"memoLine\":" << JsonString(line.memoLine)
      << ",\"repeats\":" << JsonString(line.repeats) << ",\"count\":" << count << "}\n";
}

// The items of the schedule whose texts hold every word of TEXT, one a line, by date: the first
// date (in the range, when one is given), the times, title, place, where the words were found
// and how the item repeats, tab-separated; or one JSON object a line.
int RunFind(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
            CodePage page) {
  std::string text;
  const CommandOptions o =
      ParseInOut(args, "FILE.scl", "TEXT", {"--from", "--to"}, {"--json"}, text);
  FindQuery query{text};
  if (const auto from = o.Date("--from"))
    query.fromCode = DateCode(from->year, from->month, from->day);
  if (const auto to = o.Date("--to")) query.toCode = DateCode(to->year, to->month, to->day);
  if (query.toCode < query.fromCode) throw UsageError("--to is before --from");
  CliStore cli(err, page);
  if (!cli.Load(o.file)) return kExitRefused;
  FindModel model(cli.Document().Tables);
  for (const FindResult& result : model.Search(query)) {
    const FindLine line = DescribeResult(model, result);
    if (o.Flag("--json")) {
      WriteJson(line, result.count, out);
      continue;
    }
    out << DateText(line.date) << '\t' << line.time << '\t' << line.title << '\t' << line.place
        << '\t' << FoundText(line) << '\t' << line.repeats << '\n';
  }
  return kExitDone;
}

}  // namespace

const Verb kFindVerb{"find", "FILE.scl TEXT [--from YYYY/MM/DD] [--to YYYY/MM/DD] [--json]",
                     "the items whose title, place or memo hold every word of TEXT, by date; case "
                     "and accents do not count",
                     RunFind, true};

}  // namespace sched
