#include "link/caldav_multistatus.h"

#include <expat.h>

#include <algorithm>
#include <memory>

namespace sched {
namespace {

// Element names arrive as "namespace name", the separator being a blank.
constexpr char kSeparator = ' ';
constexpr std::string_view kMultistatus = "DAV: multistatus";
constexpr std::string_view kResponse = "DAV: response";
constexpr std::string_view kPropstat = "DAV: propstat";
constexpr std::string_view kHref = "DAV: href";
constexpr std::string_view kStatus = "DAV: status";
constexpr std::string_view kDisplayName = "DAV: displayname";
constexpr std::string_view kEtag = "DAV: getetag";
constexpr std::string_view kCollection = "DAV: collection";
constexpr std::string_view kCalendar = "urn:ietf:params:xml:ns:caldav calendar";
constexpr std::string_view kCalendarData = "urn:ietf:params:xml:ns:caldav calendar-data";

// A status line "HTTP/1.1 200 OK" of a propstat.
bool IsOk(std::string_view status) {
  const std::size_t blank = status.find(' ');
  return blank != std::string_view::npos && status.substr(blank + 1).starts_with("200");
}

struct Reader {
  std::vector<DavResource> resources;
  std::vector<std::string> path;  // the open elements
  std::string text;               // the text of the innermost open element
  DavResource found;              // of a propstat, until its status says whether it counts
  std::string status;
  bool sawMultistatus = false;

  bool Inside(std::string_view name) const {
    for (const std::string& open : path) {
      if (open == name) return true;
    }
    return false;
  }

  void Start(std::string_view name) {
    if (path.empty()) sawMultistatus = name == kMultistatus;
    path.emplace_back(name);
    text.clear();
    if (!Inside(kResponse)) return;
    if (name == kResponse) resources.emplace_back();
    if (name == kPropstat) {
      found = {};
      status.clear();
    }
    if (name == kCollection) found.isCollection = true;
    if (name == kCalendar) found.isCalendar = true;
  }

  void End() {
    const std::string name = std::move(path.back());
    path.pop_back();
    if (!Inside(kResponse) && name != kResponse) return;
    DavResource& r = resources.back();
    if (name == kHref && !Inside(kPropstat)) r.href = text;
    if (name == kStatus) status = text;
    if (name == kDisplayName) found.displayName = text;
    if (name == kEtag) found.etag = text;
    if (name == kCalendarData) found.calendarData = text;
    if (name == kPropstat && IsOk(status)) {
      if (!found.displayName.empty()) r.displayName = found.displayName;
      if (!found.etag.empty()) r.etag = found.etag;
      if (!found.calendarData.empty()) r.calendarData = found.calendarData;
      r.isCalendar = r.isCalendar || found.isCalendar;
      r.isCollection = r.isCollection || found.isCollection;
    }
    text.clear();
  }
};

void XMLCALL OnStart(void* data, const XML_Char* name, const XML_Char**) {
  static_cast<Reader*>(data)->Start(name);
}

void XMLCALL OnEnd(void* data, const XML_Char*) {
  static_cast<Reader*>(data)->End();
}

void XMLCALL OnText(void* data, const XML_Char* text, int length) {
  static_cast<Reader*>(data)->text.append(text, static_cast<std::size_t>(length));
}

struct ParserFree {
  void operator()(XML_Parser p) const { XML_ParserFree(p); }
};

}  // namespace

std::optional<std::vector<DavResource>> ParseMultistatus(std::string_view xml) {
  const std::unique_ptr<XML_ParserStruct, ParserFree> parser(
      XML_ParserCreateNS("UTF-8", kSeparator));
  if (!parser) return std::nullopt;
  Reader reader;
  XML_SetUserData(parser.get(), &reader);
  XML_SetElementHandler(parser.get(), OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser.get(), OnText);
  // Pieces below the parser's int length, so that no size is cut.
  constexpr std::size_t kPiece = 1 << 20;
  do {
    const std::size_t length = std::min(kPiece, xml.size());
    const bool last = length == xml.size();
    if (XML_Parse(parser.get(), xml.data(), static_cast<int>(length), last) != XML_STATUS_OK) {
      return std::nullopt;
    }
    xml.remove_prefix(length);
  } while (!xml.empty());
  if (!reader.sawMultistatus) return std::nullopt;
  return std::move(reader.resources);
}

}  // namespace sched
