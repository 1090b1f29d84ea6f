#include "platform/qt/qt_secret_store.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>

namespace sched {
namespace {

constexpr const char* kService = "Scheduler data link";

// Runs the job to its end with the event loop going; true when it did what it was asked.
bool Run(QKeychain::Job& job) {
  job.setAutoDelete(false);
  QEventLoop loop;
  QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
  job.start();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  return job.error() == QKeychain::NoError;
}

}  // namespace

std::optional<std::string> QtSecretStore::ReadPassword(const std::string& account) {
  QKeychain::ReadPasswordJob job(kService);
  job.setKey(QString::fromStdString(account));
  if (!Run(job)) return std::nullopt;
  return job.textData().toStdString();
}

bool QtSecretStore::SavePassword(const std::string& account, const std::string& password) {
  QKeychain::WritePasswordJob job(kService);
  job.setKey(QString::fromStdString(account));
  job.setTextData(QString::fromStdString(password));
  return Run(job);
}

}  // namespace sched
