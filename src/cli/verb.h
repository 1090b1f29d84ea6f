#pragma once

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/codepage.h"

namespace sched {

// How scltool ends: done; refused, when a file does not load or save or a check of the
// program said no; bad usage.
inline constexpr int kExitDone = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;

// A verb of scltool, `scltool NAME ARGUMENTS`: one entry of the table from which the tool finds
// the verb and writes its usage.
struct Verb {
  std::string_view name;
  // The arguments as the usage shows them, one form a line; a line that begins with a blank
  // goes on with the form above it.
  std::string_view synopsis;
  // What the verb does, in one line.
  std::string_view summary;
  // Runs the verb on the arguments behind its name, its results on `out` and its messages on
  // `err`, the texts of its files in `page`, and gives the exit status; throws UsageError for
  // arguments it cannot take.
  int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             CodePage page);
  // True when the verb reads or writes the texts of a schedule and takes --code-page.
  bool texts = false;
};

// What is wrong with a verb's arguments, in one line.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

extern const Verb kInfoVerb;
extern const Verb kDumpVerb;
extern const Verb kResaveVerb;
extern const Verb kSampleVerb;
extern const Verb kHolidaysVerb;
extern const Verb kMonthVerb;
extern const Verb kAddVerb;
extern const Verb kDeleteVerb;
extern const Verb kPasteVerb;
extern const Verb kRuleVerb;
extern const Verb kAlarmsVerb;
extern const Verb kSnd2WavVerb;
extern const Verb kPrintVerb;
extern const Verb kCsvReadVerb;
extern const Verb kImportCsvVerb;
extern const Verb kExportCsvVerb;
extern const Verb kExportIcsVerb;
extern const Verb kImportIcsVerb;
extern const Verb kFindVerb;
extern const Verb kCalDavExportVerb;
extern const Verb kCalDavImportVerb;

// Every verb, in the order the usage lists them.
std::span<const Verb* const> Verbs();
// The verb of that name; nullptr when there is none.
const Verb* FindVerb(std::string_view name);

// Takes "--code-page 1252|932" out of a verb's arguments: the code page it names, Western when
// it is not given; a UsageError for another value or a missing one.
CodePage TakeCodePage(std::vector<std::string>& args);

// The usage of every verb, and each verb's summary.
void WriteUsage(std::ostream& out);
// The usage of one verb, and its summary.
void WriteVerbUsage(const Verb& verb, std::ostream& out);

}  // namespace sched
