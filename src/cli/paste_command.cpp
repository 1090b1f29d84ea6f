#include "appointments/copy_paste.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "store/day_items.h"

namespace sched {
namespace {

// Copies the Kth item of a day, in the day's order, and pastes it on another date as the
// window does, keeping a series' rule unless `--single` answers No; then saves the file.
int RunPaste(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
             CodePage page) {
  const CommandOptions options = ParseOptions(args, {"--from", "--index", "--to"}, {"--single"});
  const CivilDate from = RequireDate(options.Required("--from"));
  const int index = RequireInt("--index", options.Required("--index"), 1);
  const CivilDate to = RequireDate(options.Required("--to"));
  CliStore cli(err, page);
  if (!cli.Load(options.file)) return kExitRefused;
  ScheduleDocument& doc = cli.Document();
  StreamMessages messages(err, options.Flag("--single") ? MsgAnswer::No : MsgAnswer::Yes);
  CopyPaste copyPaste(cli.Store(), messages);
  if (!copyPaste.CopySchedule(false, ItemOfDay(doc.Tables, from, index))) return kExitRefused;
  doc.SetShownDate(to);
  if (!copyPaste.PasteSchedule()) return kExitRefused;
  return cli.Save(options.file) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kPasteVerb{"paste", "FILE.scl --from YYYY/MM/DD --index K --to YYYY/MM/DD [--single]",
                      "copies a day's item and pastes it on another date, and saves the file",
                      RunPaste, true};

}  // namespace sched
