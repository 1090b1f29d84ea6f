#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "link/caldav_multistatus.h"
#include "platform/http_client.h"

namespace sched {

// The server account of the data link: a CalDAV calendar collection (RFC 4791).
struct CalDavAccount {
  std::string url;
  std::string user;
  std::string password;
};

// What went wrong with a request to the collection, in the terms a user sees.
enum class CalDavProblem {
  kNone,
  kUnreachable,
  kTimedOut,
  kCancelled,
  kUntrustedCertificate,
  kRedirectElsewhere,
  kLoginRefused,
  kNotACalendar,
  kServerError,
};

struct CalDavOutcome {
  CalDavProblem problem = CalDavProblem::kNone;
  std::string fingerprint;  // of a certificate not trusted
  std::string detail;       // the status or the transport's words, for a server error
  bool Ok() const { return problem == CalDavProblem::kNone; }
};

// The outcome in a user's words.
std::string ProblemText(const CalDavOutcome& outcome);

// The requests of the data link to one calendar collection.
class CalDavCollection {
 public:
  CalDavCollection(HttpClient& http, CalDavAccount account);

  // The collection's display name and, when asked, how many events it holds; kNotACalendar
  // when the URL names no calendar collection.
  struct Summary {
    CalDavOutcome outcome;
    std::string displayName;
    int events = 0;
  };
  Summary Probe(bool countEvents);

  // Puts the calendar text as the event resource of `uid`: only when there is none yet when
  // `etag` is empty, else only when the server's still has that ETag.
  struct PutResult {
    CalDavOutcome outcome;
    bool changedOnServer = false;  // the server's resource is not the one the ETag names
    std::string etag;              // of the resource put, when the server says it
  };
  PutResult Put(const std::string& uid, const std::string& ics, const std::string& etag);

  // The events with an occurrence between the two dates (either open), with their data.
  struct Events {
    CalDavOutcome outcome;
    std::vector<DavResource> resources;
  };
  Events Query(const std::optional<CivilDate>& first, const std::optional<CivilDate>& last);

  // The URL of the event resource of `uid`.
  std::string EventUrl(const std::string& uid) const;

 private:
  HttpResponse Send(std::string method, const std::string& url, int depth, std::string body);
  // The outcome of a response that should have been a multistatus with the collection.
  CalDavOutcome OutcomeOf(const HttpResponse& response) const;

  HttpClient& http_;
  CalDavAccount account_;
};

}  // namespace sched
