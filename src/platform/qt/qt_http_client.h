#pragma once

#include <QNetworkAccessManager>
#include <QPointer>
#include <QWidget>

#include "platform/http_client.h"

namespace sched {

struct HttpTimeouts {
  int connectMs = 10000;  // until the request is on its way
  int wholeMs = 60000;    // until the whole answer is in
};

// Requests over Qt Network. While one waits, the event loop runs; with a window to show it
// over, a progress window with a Cancel button opens when the wait lasts.
class QtHttpClient : public HttpClient {
 public:
  explicit QtHttpClient(QWidget* progressOwner = nullptr, HttpTimeouts timeouts = {});

  HttpResponse Send(const HttpRequest& request) override;

 private:
  QNetworkAccessManager manager_;
  QPointer<QWidget> progressOwner_;
  HttpTimeouts timeouts_;
};

}  // namespace sched
