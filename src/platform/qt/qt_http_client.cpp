#include "platform/qt/qt_http_client.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QProgressDialog>
#include <QSslCertificate>
#include <QTimer>
#include <memory>

namespace sched {
namespace {

// The progress window opens when a wait lasts this long.
constexpr int kProgressDelayMs = 700;

// A redirect is followed to the same host only, and never from HTTPS down to plain HTTP.
bool MayFollow(const QUrl& from, const QUrl& to) {
  return from.host().compare(to.host(), Qt::CaseInsensitive) == 0 &&
         (to.scheme() == "https" || from.scheme() == "http");
}

std::string Fingerprint(const QSslCertificate& certificate) {
  return certificate.digest(QCryptographicHash::Sha256).toHex(':').toUpper().toStdString();
}

HttpFailure FailureOf(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyNotFoundError: return HttpFailure::kUnreachable;
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError: return HttpFailure::kTimedOut;
    case QNetworkReply::OperationCanceledError: return HttpFailure::kCancelled;
    case QNetworkReply::SslHandshakeFailedError: return HttpFailure::kUntrustedCertificate;
    default: return HttpFailure::kOther;
  }
}

}  // namespace

QtHttpClient::QtHttpClient(QWidget* progressOwner, HttpTimeouts timeouts)
    : progressOwner_(progressOwner), timeouts_(timeouts) {}

HttpResponse QtHttpClient::Send(const HttpRequest& r) {
  const QUrl url(QString::fromStdString(r.url));
  QNetworkRequest request(url);
  for (const auto& [name, value] : r.headers) {
    request.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::UserVerifiedRedirectPolicy);
  std::unique_ptr<QNetworkReply> reply(manager_.sendCustomRequest(
      request, QByteArray::fromStdString(r.method), QByteArray::fromStdString(r.body)));

  HttpResponse out;
  QEventLoop loop;
  // Why the request was broken off; kNone while nothing broke it.
  HttpFailure broken = HttpFailure::kNone;
  const auto breakOff = [&](HttpFailure why) {
    if (broken == HttpFailure::kNone) broken = why;
    reply->abort();
  };
  QTimer connectTimer;
  connectTimer.setSingleShot(true);
  QObject::connect(&connectTimer, &QTimer::timeout, [&] { breakOff(HttpFailure::kTimedOut); });
  QObject::connect(reply.get(), &QNetworkReply::requestSent, &connectTimer, &QTimer::stop);
  connectTimer.start(timeouts_.connectMs);
  QTimer wholeTimer;
  wholeTimer.setSingleShot(true);
  QObject::connect(&wholeTimer, &QTimer::timeout, [&] { breakOff(HttpFailure::kTimedOut); });
  wholeTimer.start(timeouts_.wholeMs);

  QObject::connect(reply.get(), &QNetworkReply::redirected, [&](const QUrl& to) {
    if (MayFollow(url, to)) {
      emit reply->redirectAllowed();
    } else {
      out.detail = to.toString().toStdString();
      breakOff(HttpFailure::kRedirectElsewhere);
    }
  });
  // A certificate that does not verify is never let through; its fingerprint is shown.
  QObject::connect(reply.get(), &QNetworkReply::sslErrors, [&](const QList<QSslError>& errors) {
    QSslCertificate certificate = reply->sslConfiguration().peerCertificate();
    if (certificate.isNull() && !errors.isEmpty()) certificate = errors.first().certificate();
    out.fingerprint = Fingerprint(certificate);
    if (!errors.isEmpty()) out.detail = errors.first().errorString().toStdString();
    broken = HttpFailure::kUntrustedCertificate;
  });
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);

  std::unique_ptr<QProgressDialog> progress;
  if (progressOwner_) {
    progress = std::make_unique<QProgressDialog>("Waiting for the calendar server...", "Cancel", 0,
                                                 0, nullptr);
    progress->setWindowTitle("Scheduler");
    progress->setWindowModality(Qt::ApplicationModal);
    progress->setMinimumDuration(kProgressDelayMs);
    QObject::connect(progress.get(), &QProgressDialog::canceled,
                     [&] { breakOff(HttpFailure::kCancelled); });
  }
  if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
  if (progress) progress->reset();

  const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
  if (broken != HttpFailure::kNone) {
    out.failure = broken;
  } else if (!status.isValid()) {
    out.failure = FailureOf(reply->error());
    if (out.failure == HttpFailure::kNone) out.failure = HttpFailure::kOther;
    out.detail = reply->errorString().toStdString();
  } else {
    out.status = status.toInt();
    out.etag = reply->rawHeader("ETag").toStdString();
    out.body = reply->readAll().toStdString();
  }
  return out;
}

}  // namespace sched
