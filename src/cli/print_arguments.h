#pragma once

#include <string>
#include <vector>

#include "core/calendar.h"

namespace sched {

// What `scltool print` is asked: FILE.scl --from YYYY/MM/DD --to YYYY/MM/DD OUT.pdf
// [--copies N].
struct PrintArguments {
  std::string file;
  std::string pdf;
  CivilDate from;
  CivilDate to;
  int copies = 1;
};

// The arguments behind the verb; a UsageError for what it cannot take.
PrintArguments ParsePrintArguments(const std::vector<std::string>& args);

// The companion program that prints, beside scltool.
inline constexpr const char* kPrintProgram = "scltool-qt";

}  // namespace sched
