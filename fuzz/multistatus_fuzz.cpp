// Feeds arbitrary text to the reader of a calendar server's multistatus answers, and what it
// finds to the joining of their calendars. Either may refuse the text, never crash or hang; an
// answer read holds no more resources than it has response elements.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "link/caldav_link_component.h"
#include "link/caldav_multistatus.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto resources = ParseMultistatus(text);
  if (!resources) return 0;
  if (resources->size() > size / 10) std::abort();  // "<response>" at the least
  (void)JoinCalendars(*resources);
  return 0;
}
