#pragma once

#include <string>

namespace sched {

// Reads and writes CSV documents: the open document is replaced by a file's rows, or written
// as a CSV file.
class CsvExchange {
 public:
  virtual ~CsvExchange() = default;
  virtual void ImportCsv(const std::string& path) = 0;
  // False when the file could not be written.
  virtual bool ExportCsv(const std::string& path) = 0;
};

}  // namespace sched
