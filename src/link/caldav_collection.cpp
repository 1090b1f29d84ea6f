#include "link/caldav_collection.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace sched {
namespace {

constexpr const char* kXmlType = "application/xml; charset=utf-8";
constexpr const char* kCalendarType = "text/calendar; charset=utf-8";

constexpr const char* kProbeBody =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<d:propfind xmlns:d=\"DAV:\"><d:prop><d:displayname/><d:resourcetype/></d:prop>"
    "</d:propfind>\n";

constexpr const char* kEtagBody =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<d:propfind xmlns:d=\"DAV:\"><d:prop><d:getetag/></d:prop></d:propfind>\n";

std::string Base64(const std::string& bytes) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t n = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8 | (k < n ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out += k <= n ? kDigits[(group >> (18 - 6 * k)) & 0x3F] : '=';
    }
  }
  return out;
}

// A date as the UTC start of its day, "yyyymmddT000000Z".
std::string UtcDay(const CivilDate& d) {
  char text[24];
  std::snprintf(text, sizeof text, "%04d%02d%02dT000000Z", d.year, d.month, d.day);
  return text;
}

// The calendar-query of the events with an occurrence in the period. A day more on each side:
// the server reads the bounds as UTC and the schedule's times are local.
std::string QueryBody(const std::optional<CivilDate>& first, const std::optional<CivilDate>& last) {
  std::string range;
  if (first || last) {
    range = "<c:time-range";
    if (first) range += " start=\"" + UtcDay(AddDays(*first, -1)) + "\"";
    if (last) range += " end=\"" + UtcDay(AddDays(*last, 2)) + "\"";
    range += "/>";
  }
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<c:calendar-query xmlns:d=\"DAV:\" xmlns:c=\"urn:ietf:params:xml:ns:caldav\">"
         "<d:prop><d:getetag/><c:calendar-data/></d:prop>"
         "<c:filter><c:comp-filter name=\"VCALENDAR\"><c:comp-filter name=\"VEVENT\">" +
         range + "</c:comp-filter></c:comp-filter></c:filter></c:calendar-query>\n";
}

constexpr const char* kCountBody =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<c:calendar-query xmlns:d=\"DAV:\" xmlns:c=\"urn:ietf:params:xml:ns:caldav\">"
    "<d:prop><d:getetag/></d:prop><c:filter><c:comp-filter name=\"VCALENDAR\">"
    "<c:comp-filter name=\"VEVENT\"/></c:comp-filter></c:filter></c:calendar-query>\n";

CalDavOutcome TransportOutcome(const HttpResponse& r) {
  switch (r.failure) {
    case HttpFailure::kNone: break;
    case HttpFailure::kUnreachable: return {CalDavProblem::kUnreachable, "", r.detail};
    case HttpFailure::kTimedOut: return {CalDavProblem::kTimedOut, "", r.detail};
    case HttpFailure::kCancelled: return {CalDavProblem::kCancelled, "", r.detail};
    case HttpFailure::kUntrustedCertificate:
      return {CalDavProblem::kUntrustedCertificate, r.fingerprint, r.detail};
    case HttpFailure::kRedirectElsewhere: return {CalDavProblem::kRedirectElsewhere, "", r.detail};
    case HttpFailure::kOther: return {CalDavProblem::kServerError, "", r.detail};
  }
  if (r.status == 401 || r.status == 403) return {CalDavProblem::kLoginRefused, "", ""};
  return {};
}

CalDavOutcome ServerError(int status) {
  return {CalDavProblem::kServerError, "", "HTTP status " + std::to_string(status)};
}

}  // namespace

std::string ProblemText(const CalDavOutcome& o) {
  switch (o.problem) {
    case CalDavProblem::kNone: return "";
    case CalDavProblem::kUnreachable:
      return "The calendar server cannot be reached. Check the URL and the network.\n(" + o.detail +
             ")";
    case CalDavProblem::kTimedOut:
      return "The calendar server did not answer in time. Try again later.";
    case CalDavProblem::kCancelled: return "The exchange with the calendar server was cancelled.";
    case CalDavProblem::kUntrustedCertificate:
      return "The calendar server's certificate is not trusted, so the connection was refused.\n"
             "SHA-256 fingerprint: " +
             o.fingerprint;
    case CalDavProblem::kRedirectElsewhere:
      return "The calendar server sent the request on to another server; it was not followed.";
    case CalDavProblem::kLoginRefused:
      return "The calendar server refused the login. Check the user name and the password.";
    case CalDavProblem::kNotACalendar:
      return "The URL names no calendar on the server. Give the address of a calendar "
             "collection.";
    case CalDavProblem::kServerError:
      return "The calendar server could not do what was asked.\n(" + o.detail + ")";
  }
  return "";
}

CalDavCollection::CalDavCollection(HttpClient& http, CalDavAccount account)
    : http_(http), account_(std::move(account)) {
  if (!account_.url.empty() && account_.url.back() != '/') account_.url += '/';
}

std::string CalDavCollection::EventUrl(const std::string& uid) const {
  return account_.url + uid + ".ics";
}

HttpResponse CalDavCollection::Send(std::string method, const std::string& url, int depth,
                                    std::string body) {
  HttpRequest request{std::move(method), url, {}, std::move(body)};
  request.headers.emplace_back("Authorization",
                               "Basic " + Base64(account_.user + ":" + account_.password));
  if (depth >= 0) request.headers.emplace_back("Depth", std::to_string(depth));
  if (request.method != "PUT") request.headers.emplace_back("Content-Type", kXmlType);
  return http_.Send(request);
}

CalDavOutcome CalDavCollection::OutcomeOf(const HttpResponse& response) const {
  if (CalDavOutcome transport = TransportOutcome(response); !transport.Ok()) return transport;
  if (response.status == 404 || response.status == 405 || response.status == 207) return {};
  return ServerError(response.status);
}

CalDavCollection::Summary CalDavCollection::Probe(bool countEvents) {
  Summary summary;
  const HttpResponse props = Send("PROPFIND", account_.url, 0, kProbeBody);
  summary.outcome = OutcomeOf(props);
  if (!summary.outcome.Ok()) return summary;
  const auto resources = ParseMultistatus(props.body);
  if (props.status != 207 || !resources || resources->empty() || !resources->front().isCalendar) {
    summary.outcome = {CalDavProblem::kNotACalendar, "", ""};
    return summary;
  }
  summary.displayName = resources->front().displayName;
  if (!countEvents) return summary;
  const HttpResponse events = Send("REPORT", account_.url, 1, kCountBody);
  summary.outcome = OutcomeOf(events);
  const auto listed = ParseMultistatus(events.body);
  if (summary.outcome.Ok() && (events.status != 207 || !listed)) {
    summary.outcome = ServerError(events.status);
  }
  if (summary.outcome.Ok()) summary.events = static_cast<int>(listed->size());
  return summary;
}

CalDavCollection::PutResult CalDavCollection::Put(const std::string& uid, const std::string& ics,
                                                  const std::string& etag) {
  HttpRequest request{"PUT", EventUrl(uid), {}, ics};
  request.headers.emplace_back("Authorization",
                               "Basic " + Base64(account_.user + ":" + account_.password));
  request.headers.emplace_back("Content-Type", kCalendarType);
  if (etag.empty()) {
    request.headers.emplace_back("If-None-Match", "*");
  } else {
    request.headers.emplace_back("If-Match", etag);
  }
  const HttpResponse response = http_.Send(request);
  PutResult result;
  result.outcome = TransportOutcome(response);
  if (!result.outcome.Ok()) return result;
  if (response.status == 412) {
    result.changedOnServer = true;
  } else if (response.status == 404 || response.status == 405 || response.status == 409) {
    result.outcome = {CalDavProblem::kNotACalendar, "", ""};
  } else if (response.status < 200 || response.status > 299) {
    result.outcome = ServerError(response.status);
  }
  result.etag = response.etag;
  if (result.outcome.Ok() && !result.changedOnServer && result.etag.empty()) {
    // Not every server names the ETag of what was put; its properties do.
    const HttpResponse props = Send("PROPFIND", EventUrl(uid), 0, kEtagBody);
    const auto resources = ParseMultistatus(props.body);
    if (props.failure == HttpFailure::kNone && resources && !resources->empty()) {
      result.etag = resources->front().etag;
    }
  }
  return result;
}

CalDavCollection::Events CalDavCollection::Query(const std::optional<CivilDate>& first,
                                                 const std::optional<CivilDate>& last) {
  Events events;
  const HttpResponse response = Send("REPORT", account_.url, 1, QueryBody(first, last));
  events.outcome = OutcomeOf(response);
  if (!events.outcome.Ok()) return events;
  auto resources = ParseMultistatus(response.body);
  if (response.status != 207 || !resources) {
    events.outcome = {CalDavProblem::kNotACalendar, "", ""};
    return events;
  }
  events.resources = std::move(*resources);
  return events;
}

}  // namespace sched
