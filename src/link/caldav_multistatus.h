#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sched {

// One resource of a WebDAV multistatus answer (RFC 4918), with the properties the server found
// for it (those of a propstat whose status is 200).
struct DavResource {
  std::string href;
  std::string displayName;
  std::string etag;
  std::string calendarData;
  bool isCalendar = false;    // its resourcetype holds a CalDAV calendar
  bool isCollection = false;  // its resourcetype holds a collection
};

// The resources of a multistatus answer; nothing when the text is no multistatus.
std::optional<std::vector<DavResource>> ParseMultistatus(std::string_view xml);

}  // namespace sched
