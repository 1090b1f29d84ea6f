#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/codepage.h"
#include "link/bytes_link_component.h"
#include "platform/clock.h"

namespace sched {

// The time of the UTC clock, for the stamps of the events written.
DateTime UtcNow();

// The import file of the events of an iCalendar text, as of the clock's now; nothing when the
// text is no calendar.
std::optional<std::vector<std::uint8_t>> ImportFileOfCalendar(std::string_view ics,
                                                              const Clock& clock, CodePage page);

// The link component as a bridge to an iCalendar file that the PIM program keeps or imports:
// an export puts the items of the export file into the calendar, an import makes the import
// file of the calendar's events. The calendar's path and the code page of the link files are
// asked for at each use, as the user may change them.
class IcsLinkComponent : public BytesLinkComponent {
 public:
  struct Services {
    std::function<std::string()> calendarPath;
    std::function<CodePage()> codePage;
    const Clock& clock;
  };
  explicit IcsLinkComponent(Services services) : s_(std::move(services)) {}

  // The same on the bytes of the link files: the export's put into the calendar, false when
  // that failed; the import's made of the calendar, nothing when there is no calendar.
  bool Export(std::span<const std::uint8_t> linkFile) override;
  std::optional<std::vector<std::uint8_t>> Import() override;

 private:
  Services s_;
};

}  // namespace sched
