#pragma once

#include <string>

namespace sched {

// The link component of the data link: the partner that takes the file of an export over to
// the PIM program and fills the file of an import from it.
class LinkComponent {
 public:
  virtual ~LinkComponent() = default;
  // Takes the export file at `path` over; false when that failed.
  virtual bool ExportFile(const std::string& path) = 0;
  // Fills the import file at `path`; false when that failed.
  virtual bool ImportFile(const std::string& path) = 0;
};

}  // namespace sched
