#include <algorithm>
#include <array>

#include "cli/cli_args.h"
#include "cli/verb.h"

namespace sched {
namespace {

const std::array<const Verb*, 21> kVerbs = {
    &kInfoVerb,      &kDumpVerb,         &kResaveVerb,       &kSampleVerb,    &kHolidaysVerb,
    &kMonthVerb,     &kAddVerb,          &kDeleteVerb,       &kPasteVerb,     &kRuleVerb,
    &kAlarmsVerb,    &kCsvReadVerb,      &kImportCsvVerb,    &kExportCsvVerb, &kExportIcsVerb,
    &kImportIcsVerb, &kCalDavExportVerb, &kCalDavImportVerb, &kSnd2WavVerb,   &kPrintVerb,
    &kFindVerb};

constexpr std::string_view kCodePageOption = "--code-page";
constexpr std::string_view kCodePageNote =
    "takes --code-page 1252|932: the code page of the texts in its files, Western (1252) when\n"
    "not given, Japanese Shift-JIS (932) for a Japanese organiser's files.\n";

constexpr std::string_view kFirstLead = "usage: ";
constexpr std::string_view kNextLead = "       ";

// The forms of the verb's synopsis, the first behind `lead` and the others behind blanks; a
// line that goes on with a form stands under the form's arguments.
void WriteForms(const Verb& verb, std::string_view lead, std::ostream& out) {
  const std::string command = "scltool " + std::string(verb.name) + " ";
  std::string_view rest = verb.synopsis;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.starts_with(' ')) {
      out << std::string(lead.size() + command.size(), ' ') << line << '\n';
    } else {
      out << lead << command << line << '\n';
      lead = kNextLead;
    }
  }
}

}  // namespace

std::span<const Verb* const> Verbs() {
  return kVerbs;
}

const Verb* FindVerb(std::string_view name) {
  const auto it = std::find_if(kVerbs.begin(), kVerbs.end(),
                               [name](const Verb* verb) { return verb->name == name; });
  return it == kVerbs.end() ? nullptr : *it;
}

CodePage TakeCodePage(std::vector<std::string>& args) {
  const auto option = std::find(args.begin(), args.end(), kCodePageOption);
  if (option == args.end()) return CodePage::kWestern;
  if (option + 1 == args.end()) throw UsageError("--code-page needs a value");
  const int number = RequireInt(kCodePageOption, option[1]);
  const std::optional<CodePage> page = CodePageOfNumber(number);
  if (!page) throw UsageError("--code-page takes 1252 or 932");
  args.erase(option, option + 2);
  if (std::find(args.begin(), args.end(), kCodePageOption) != args.end()) {
    throw UsageError("--code-page given twice");
  }
  return *page;
}

void WriteUsage(std::ostream& out) {
  std::string_view lead = kFirstLead;
  for (const Verb* verb : kVerbs) {
    WriteForms(*verb, lead, out);
    lead = kNextLead;
  }
  out << kNextLead << "scltool help [VERB] | --help | --version\n\n";
  for (const Verb* verb : kVerbs) {
    const std::size_t pad = verb->name.size() < 10 ? 10 - verb->name.size() : 1;
    out << "  " << verb->name << std::string(pad, ' ') << verb->summary << '\n';
  }
  out << "\nEvery verb on a schedule file " << kCodePageNote;
  out << "\nExit status: 0 done; 1 when a file does not load or save, or the program refuses\n"
         "what is asked, with the reason on standard error; 2 for bad usage.\n";
  out << "\nThe user's manual: " SCHEDULER_MANUAL "\n";
}

void WriteVerbUsage(const Verb& verb, std::ostream& out) {
  WriteForms(verb, kFirstLead, out);
  out << '\n' << verb.summary << '\n';
  if (verb.texts) out << "\nIt " << kCodePageNote;
}

}  // namespace sched
