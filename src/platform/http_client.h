#pragma once

#include <string>
#include <utility>
#include <vector>

namespace sched {

// One request to a web server: any method (PROPFIND, REPORT and PUT included), its headers and
// its body.
struct HttpRequest {
  std::string method;
  std::string url;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
};

// Why a request got no answer of the server.
enum class HttpFailure {
  kNone,
  kUnreachable,           // no connection: no such host, nothing listens, the line broke
  kTimedOut,              // no connection within 10 s, or no whole answer within 60 s
  kCancelled,             // the user cancelled it
  kUntrustedCertificate,  // the server's certificate did not verify; `fingerprint` says which
  kRedirectElsewhere,     // the server sent the request to another host
  kOther,
};

struct HttpResponse {
  HttpFailure failure = HttpFailure::kNone;
  int status = 0;
  std::string etag;  // the ETag header, as sent
  std::string body;
  std::string fingerprint;  // SHA-256 of a refused certificate, as colon-separated hex
  std::string detail;       // the transport's own words on a failure
};

// The web client of the data link's server. Redirects are followed within the same host only;
// certificates are verified against the system's store.
class HttpClient {
 public:
  virtual ~HttpClient() = default;
  virtual HttpResponse Send(const HttpRequest& request) = 0;
};

}  // namespace sched
