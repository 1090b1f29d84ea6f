// scltool: reads, checks and rewrites schedule files from the command line.
#include <iostream>
#include <string>
#include <vector>

#include "cli/verb.h"

namespace {

// Bad usage: what is wrong, and where the usage is.
int BadUsage(std::string_view who, const std::string& problem, std::string_view help) {
  std::cerr << who << ": " << problem << "\nTry '" << help << "'.\n";
  return sched::kExitUsage;
}

int Run(const std::vector<std::string>& args) {
  if (args.empty()) return BadUsage("scltool", "a verb is missing", "scltool --help");
  const std::string& word = args[0];
  const bool help = word == "--help" || word == "-h" || word == "help";
  if (help && args.size() == 1) {
    sched::WriteUsage(std::cout);
    return sched::kExitDone;
  }
  if (word == "--version" && args.size() == 1) {
    std::cout << "scltool " SCHEDULER_VERSION "\n";
    return sched::kExitDone;
  }
  if (word == "help" && args.size() == 2) {
    const sched::Verb* verb = sched::FindVerb(args[1]);
    if (verb == nullptr) {
      return BadUsage("scltool help", "no verb '" + args[1] + "'", "scltool --help");
    }
    sched::WriteVerbUsage(*verb, std::cout);
    return sched::kExitDone;
  }
  const sched::Verb* verb = sched::FindVerb(word);
  if (verb == nullptr) {
    const std::string problem = help || word == "--version" ? "unexpected arguments behind " + word
                                : word.starts_with("-")     ? "unknown option '" + word + "'"
                                                            : "no verb '" + word + "'";
    return BadUsage("scltool", problem, "scltool --help");
  }
  try {
    std::vector<std::string> rest(args.begin() + 1, args.end());
    const sched::CodePage page =
        verb->texts ? sched::TakeCodePage(rest) : sched::CodePage::kWestern;
    if (page == sched::CodePage::kJapanese && !sched::ShiftJisAvailable()) {
      std::cerr << "scltool: this system's C library cannot convert Shift-JIS (code page 932)\n";
      return sched::kExitRefused;
    }
    return verb->run(rest, std::cout, std::cerr, page);
  } catch (const sched::UsageError& error) {
    const std::string name(verb->name);
    return BadUsage("scltool " + name, error.what(), "scltool help " + name);
  }
}

}  // namespace

int main(int argc, char** argv) {
  return Run(std::vector<std::string>(argv + 1, argv + argc));
}
