#include "cli/delete_command.h"

#include <cstdint>
#include <functional>
#include <optional>

#include "appointments/delete_commands.h"
#include "appointments/texts.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"

namespace sched {
namespace {

constexpr const char* kUsage =
    "usage: scltool delete FILE.scl --date YYYY/MM/DD --index K\n"
    "       scltool delete FILE.scl --month YYYY/MM | --year YYYY | --older-than YYYY/MM/DD\n"
    "         | --newer-than YYYY/MM/DD [--keep-repeats]";

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

// What the options ask for; true when the schedule changed.
using DeleteAction = std::function<bool(DeleteCommands&, const SchDatCTL&)>;

// The one command of the options; nothing when they do not go together.
std::optional<DeleteAction> ChooseAction(const CommandOptions& r) {
  int commands = 0;
  for (const char* name : {"--date", "--month", "--year", "--older-than", "--newer-than"}) {
    if (r.Value(name) != nullptr) ++commands;
  }
  const bool byItem = r.Value("--date") != nullptr;
  if (commands != 1 || byItem != (r.Value("--index") != nullptr) ||
      (byItem && r.Flag("--keep-repeats"))) {
    return std::nullopt;
  }
  if (byItem) {
    const auto date = ParseDate(*r.Value("--date"));
    const auto index = ParseInt(*r.Value("--index"), 10, 1, INT32_MAX);
    if (!date || !index) return std::nullopt;
    return [date = *date, index = *index](DeleteCommands& c, const SchDatCTL& t) {
      const int row = ItemOfDay(t, date, index);
      return row >= 0 && c.DeleteSelection({row});
    };
  }
  if (const std::string* text = r.Value("--month")) {
    const auto month = ParseDate(*text + "/01");
    if (!month) return std::nullopt;
    return [m = *month](DeleteCommands& c, const SchDatCTL&) {
      return c.DelMonth_Click(m.year, m.month);
    };
  }
  if (const std::string* text = r.Value("--year")) {
    const auto year = ParseInt(*text, 10, kFirstYear, kLastYear);
    if (!year) return std::nullopt;
    return [y = *year](DeleteCommands& c, const SchDatCTL&) { return c.DelYear_Click(y); };
  }
  const bool older = r.Value("--older-than") != nullptr;
  const auto date = ParseDate(*r.Value(older ? "--older-than" : "--newer-than"));
  if (!date) return std::nullopt;
  return [d = *date, older](DeleteCommands& c, const SchDatCTL&) {
    return older ? c.DelBefore_Click(d) : c.DelAfter_Click(d);
  };
}

}  // namespace

int RunDeleteCommand(const std::vector<std::string>& args, std::ostream& err) {
  const std::optional<CommandOptions> request =
      ParseOptions(args, {"--date", "--index", "--month", "--year", "--older-than", "--newer-than"},
                   {"--keep-repeats"});
  const std::optional<DeleteAction> action = request ? ChooseAction(*request) : std::nullopt;
  if (!action) {
    err << kUsage << '\n';
    return 2;
  }
  CliStore cli;
  if (!cli.Load(request->file)) return 1;
  DeleteAnswers answers(err, request->Flag("--keep-repeats"));
  IsoDateFormatter dates;
  DeleteCommands commands(cli.Store(), answers, dates);
  if (!(*action)(commands, cli.Document().Tables)) return 1;
  return cli.Save(request->file) ? 0 : 1;
}

}  // namespace sched
