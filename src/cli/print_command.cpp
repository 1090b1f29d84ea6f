#include "cli/cli_args.h"
#include "cli/print_arguments.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "platform/std/child_process.h"
#include "printing/select_print_date_model.h"

namespace sched {
namespace {

// Checks the arguments and the range as the range dialog does, then hands the printing to the
// companion program beside scltool, which loads Qt: scltool itself stays free of it.
int RunPrint(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             CodePage page) {
  const PrintArguments parsed = ParsePrintArguments(args);
  StreamMessages messages(err);
  PrintRange range;
  SelectPrintDateModel select(range, messages);
  select.ImDate1_Change(parsed.from);
  select.ImDate2_Change(parsed.to);
  if (!select.SchEditOK_Click()) return kExitRefused;

  const std::string program = OwnFolder() + "/" + kPrintProgram;
  std::vector<std::string> childArgs{"print"};
  childArgs.insert(childArgs.end(), args.begin(), args.end());
  childArgs.insert(childArgs.end(), {"--code-page", std::to_string(static_cast<int>(page))});
  const std::optional<int> status = RunChild(program, childArgs, out, err);
  if (!status) {
    err << "scltool print: " << program << " did not run\n";
    return kExitRefused;
  }
  return *status;
}

}  // namespace

const Verb kPrintVerb{"print", "FILE.scl --from YYYY/MM/DD --to YYYY/MM/DD OUT.pdf [--copies N]",
                      "prints the records of a date range to a PDF file, as Print does", RunPrint,
                      true};

}  // namespace sched
