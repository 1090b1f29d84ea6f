#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/cli_args.h"
#include "core/codepage.h"
#include "interchange/csv_fields.h"
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

// A verb's arguments "IN OUT [options]": OUT taken out, the rest parsed as on a file; the
// names are those of the verb's synopsis.
CommandOptions ParseInOut(const std::vector<std::string>& args, std::string_view inName,
                          std::string_view outName, std::initializer_list<std::string_view> valued,
                          std::initializer_list<std::string_view> flags, std::string& out);

// The mapping that --columns, --header and --no-header give: the twelve fields in their order
// and a header row when they are not given.
CsvSettings CsvSettingsOfOptions(const CommandOptions& options);

}  // namespace sched
