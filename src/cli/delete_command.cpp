#include <array>
#include <functional>
#include <optional>

#include "appointments/delete_commands.h"
#include "appointments/texts.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "core/number_text.h"
#include "store/day_items.h"

namespace sched {
namespace {

// The user at the questions: Yes to each, and to the question whether to leave the repeating
// items the answer of --keep-repeats.
class DeleteAnswers : public Messages {
 public:
  DeleteAnswers(std::ostream& out, bool keepRepeats) : shown_(out), keepRepeats_(keepRepeats) {}

  MsgAnswer Show(const MessageRequest& request) override {
    const MsgAnswer answer = shown_.Show(request);
    const bool leave = request.text.find(appointment_texts::kLeaveRepeats) != std::string::npos;
    return leave && !keepRepeats_ ? MsgAnswer::No : answer;
  }

 private:
  StreamMessages shown_;
  bool keepRepeats_;
};

// What the options ask for: the command, true when the schedule changed, and what to say when
// it did not.
struct DeleteAction {
  std::function<bool(DeleteCommands&, const SchDatCTL&)> run;
  std::string nothing;
};

constexpr std::array<std::string_view, 5> kCommands = {"--date", "--month", "--year",
                                                       "--older-than", "--newer-than"};

// The month "YYYY/MM" of the calendar; a UsageError for other text.
CivilDate RequireMonth(const std::string& text) {
  const std::optional<int> year =
      text.size() == 7 && text[4] == '/'
          ? ParseInt(std::string_view(text).substr(0, 4), 10, kFirstYear, kLastYear)
          : std::nullopt;
  const std::optional<int> month =
      year ? ParseInt(std::string_view(text).substr(5), 10, 1, 12) : std::nullopt;
  if (!month) {
    throw UsageError("--month takes YYYY/MM from " + std::to_string(kFirstYear) + "/01 to " +
                     std::to_string(kLastYear) + "/12, not " + text);
  }
  return {*year, *month, 1};
}

// The one command of the options.
DeleteAction ChooseAction(const CommandOptions& r) {
  std::vector<std::string_view> given;
  for (std::string_view name : kCommands) {
    if (r.Value(name) != nullptr) given.push_back(name);
  }
  if (given.empty()) {
    throw UsageError("--date, --month, --year, --older-than or --newer-than is missing");
  }
  if (given.size() > 1) r.Excludes(given[0], given[1]);
  r.Needs("--date", "--index");
  r.Needs("--index", "--date");
  r.Excludes("--keep-repeats", "--date");
  const std::string& text = *r.Value(given[0]);
  if (const std::optional<CivilDate> date = r.Date("--date")) {
    const int index = *r.Int("--index", 1);
    return {[date = *date, index](DeleteCommands& c, const SchDatCTL& t) {
              const int row = ItemOfDay(t, date, index);
              return row >= 0 && c.DeleteSelection({row});
            },
            text + " has no item " + *r.Value("--index")};
  }
  if (r.Value("--month") != nullptr) {
    return {[m = RequireMonth(text)](DeleteCommands& c, const SchDatCTL&) {
              return c.DelMonth_Click(m.year, m.month);
            },
            text + " has nothing to delete"};
  }
  if (const std::optional<int> year = r.Int("--year", kFirstYear, kLastYear)) {
    return {[y = *year](DeleteCommands& c, const SchDatCTL&) { return c.DelYear_Click(y); },
            text + " has nothing to delete"};
  }
  const bool older = given[0] == "--older-than";
  return {[d = RequireDate(text), older](DeleteCommands& c, const SchDatCTL&) {
            return older ? c.DelBefore_Click(d) : c.DelAfter_Click(d);
          },
          std::string("nothing is ") + (older ? "older" : "newer") + " than " + text};
}

// Removes the K-th item of the day, in the day's order, with its whole series, as Delete on
// one line of the list does; or runs a bulk command. Every question is answered Yes, except
// whether to leave the repeating items, which `--keep-repeats` answers.
int RunDelete(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
              CodePage page) {
  const CommandOptions request =
      ParseOptions(args, {"--date", "--index", "--month", "--year", "--older-than", "--newer-than"},
                   {"--keep-repeats"});
  const DeleteAction action = ChooseAction(request);
  CliStore cli(err, page);
  if (!cli.Load(request.file)) return kExitRefused;
  DeleteAnswers answers(err, request.Flag("--keep-repeats"));
  IsoDateFormatter dates;
  DeleteCommands commands(cli.Store(), answers, dates);
  if (!action.run(commands, cli.Document().Tables)) {
    err << "scltool delete: " << action.nothing << '\n';
    return kExitRefused;
  }
  return cli.Save(request.file) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kDeleteVerb{"delete",
                       "FILE.scl --date YYYY/MM/DD --index K\n"
                       "FILE.scl --month YYYY/MM | --year YYYY | --older-than YYYY/MM/DD\n"
                       "   | --newer-than YYYY/MM/DD [--keep-repeats]",
                       "deletes a day's item, or a month's, a year's, older or newer items",
                       RunDelete, true};

}  // namespace sched
