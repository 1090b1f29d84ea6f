#include "cli/paste_command.h"

#include <optional>

#include "appointments/copy_paste.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"

namespace sched {
namespace {

constexpr const char* kUsage =
    "usage: scltool paste FILE.scl --from YYYY/MM/DD --index K --to YYYY/MM/DD [--single]";

}  // namespace

int RunPasteCommand(const std::vector<std::string>& args, std::ostream& err) {
  const std::optional<CommandOptions> options =
      ParseOptions(args, {"--from", "--index", "--to"}, {"--single"});
  const std::optional<int> index = options && options->Value("--index")
                                       ? ParseInt(*options->Value("--index"), 10, 1, INT32_MAX)
                                       : std::nullopt;
  if (!index || !options->Date("--from") || !options->Date("--to")) {
    err << kUsage << '\n';
    return 2;
  }
  CliStore cli;
  if (!cli.Load(options->file)) return 1;
  ScheduleDocument& doc = cli.Store().Document();
  StreamMessages messages(err, options->Flag("--single") ? MsgAnswer::No : MsgAnswer::Yes);
  CopyPaste copyPaste(cli.Store(), messages);
  if (!copyPaste.CopySchedule(false, ItemOfDay(doc.Tables, *options->Date("--from"), *index))) {
    return 1;
  }
  const CivilDate to = *options->Date("--to");
  doc.CurYear = to.year;
  doc.CurMonth = to.month;
  doc.CurDay = to.day;
  if (!copyPaste.PasteSchedule()) return 1;
  return cli.Save(options->file) ? 0 : 1;
}

}  // namespace sched
