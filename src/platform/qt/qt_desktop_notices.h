#pragma once

#include <QDBusConnection>

#include "platform/desktop_notices.h"

namespace sched {

// Notifications through the desktop's notification service on D-Bus. A post never waits for the
// service: without a bus it is dropped, and a service that is missing or fails is not reported.
class QtDesktopNotices : public DesktopNotices {
 public:
  explicit QtDesktopNotices(QDBusConnection bus = QDBusConnection::sessionBus());

  void Post(const std::string& summary, const std::string& body) override;

 private:
  QDBusConnection bus_;
};

}  // namespace sched
