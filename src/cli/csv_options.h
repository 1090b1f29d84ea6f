#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/cli_args.h"
#include "core/codepage.h"
#include "interchange/csv_fields.h"
#include "platform/settings_store.h"
#include "store/scl_format.h"

namespace sched {

// A CSV file's bytes, read whole.
class CsvFileBytes {
 public:
  explicit CsvFileBytes(FileBytes bytes) : bytes_(std::move(bytes)) {}
  std::string_view Text() const {
    return {reinterpret_cast<const char*>(bytes_.data.get()), bytes_.size};
  }

 private:
  FileBytes bytes_;
};

// The CSV file's bytes; nothing, after "Read error!" and why, when it cannot be read.
std::optional<CsvFileBytes> ReadCsvBytes(const std::string& path, std::ostream& err);

// The mapping that --columns, --header and --no-header give; without --columns the mapping the
// window has stored, whose header flag the options may change.
CsvSettings CsvSettingsOfOptions(const CommandOptions& options, SettingsStore& stored);

}  // namespace sched
