#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <map>
#include <optional>
#include <vector>

#include "platform/desktop_notices.h"

namespace sched {

// Notifications through the desktop's notification service on D-Bus. A post never waits for the
// service: without a bus it is dropped, and a service that is missing or fails is not reported.
// The buttons of a notification are sent only to a service that says it shows them; the first
// post with buttons asks it, and posts wait for the answer meanwhile.
class QtDesktopNotices : public QObject, public DesktopNotices {
  Q_OBJECT

 public:
  explicit QtDesktopNotices(QDBusConnection bus = QDBusConnection::sessionBus());

  void Post(const DesktopNotice& notice) override;
  void SetActionEvent(std::function<void(int id, const std::string& key)> event) override;

 private slots:
  void ActionInvoked(uint serviceId, const QString& key);
  void NotificationClosed(uint serviceId, uint reason);

 private:
  void AskForActions();
  void Send(const DesktopNotice& notice);

  QDBusConnection bus_;
  std::optional<bool> showsActions_;  // unknown until the service has said
  bool asking_ = false;
  std::vector<DesktopNotice> waiting_;  // for that answer
  std::map<uint, int> withActions_;     // the service's number of a notification -> ours
  std::function<void(int, const std::string&)> event_;
};

}  // namespace sched
