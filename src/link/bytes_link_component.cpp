#include "link/bytes_link_component.h"

#include "platform/std/safe_file.h"
#include "store/scl_format.h"

namespace sched {

bool BytesLinkComponent::ExportFile(const std::string& path) {
  const std::optional<FileBytes> file = ReadWholeFile(path);
  return file && Export(file->Span());
}

bool BytesLinkComponent::ImportFile(const std::string& path) {
  const std::optional<std::vector<std::uint8_t>> bytes = Import();
  return bytes && WriteFileSafely(path, *bytes);
}

}  // namespace sched
