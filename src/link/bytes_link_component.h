#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/link_component.h"

namespace sched {

// A link component that works on the bytes of the link files: it reads the export file and
// writes the import file safely around them.
class BytesLinkComponent : public LinkComponent {
 public:
  bool ExportFile(const std::string& path) final;
  bool ImportFile(const std::string& path) final;

  // The export file's bytes taken over, false when that failed; the import file's bytes made,
  // nothing when there is nothing to import from.
  virtual bool Export(std::span<const std::uint8_t> linkFile) = 0;
  virtual std::optional<std::vector<std::uint8_t>> Import() = 0;
};

}  // namespace sched
