#include "cli/print_arguments.h"

#include "cli/cli_args.h"
#include "cli/verb.h"

namespace sched {

// The most copies one run prints.
constexpr int kMaxCopies = 999;

PrintArguments ParsePrintArguments(const std::vector<std::string>& args) {
  // OUT.pdf stands among the options; the file and the options go to the parser without it.
  std::vector<std::string> options;
  PrintArguments parsed;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i].starts_with("-") || options.empty()) {
      options.push_back(args[i]);
      if (args[i].starts_with("-") && i + 1 < args.size()) options.push_back(args[++i]);
    } else if (parsed.pdf.empty()) {
      parsed.pdf = args[i];
    } else {
      throw UsageError("unexpected argument '" + args[i] + "'");
    }
  }
  const CommandOptions o = ParseOptions(options, {"--from", "--to", "--copies"});
  parsed.file = o.file;
  parsed.from = RequireDate(o.Required("--from"));
  parsed.to = RequireDate(o.Required("--to"));
  parsed.copies = o.Int("--copies", 1, kMaxCopies).value_or(1);
  if (parsed.pdf.empty()) throw UsageError("OUT.pdf is missing");
  return parsed;
}

}  // namespace sched
