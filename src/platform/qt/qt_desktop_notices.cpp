#include "platform/qt/qt_desktop_notices.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace sched {
namespace {

const char kService[] = "org.freedesktop.Notifications";
const char kPath[] = "/org/freedesktop/Notifications";
const char kInterface[] = "org.freedesktop.Notifications";

}  // namespace

QtDesktopNotices::QtDesktopNotices(QDBusConnection bus) : bus_(std::move(bus)) {
  if (!bus_.isConnected()) return;
  bus_.connect(kService, kPath, kInterface, "ActionInvoked", this,
               SLOT(ActionInvoked(uint, QString)));
  bus_.connect(kService, kPath, kInterface, "NotificationClosed", this,
               SLOT(NotificationClosed(uint, uint)));
}

void QtDesktopNotices::SetActionEvent(std::function<void(int, const std::string&)> event) {
  event_ = std::move(event);
}

void QtDesktopNotices::Post(const DesktopNotice& notice) {
  if (!bus_.isConnected()) return;
  if (notice.actions.empty() || showsActions_) {
    Send(notice);
    return;
  }
  waiting_.push_back(notice);
  if (!asking_) AskForActions();
}

void QtDesktopNotices::AskForActions() {
  asking_ = true;
  const QDBusMessage ask =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, "GetCapabilities");
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(ask), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* w) {
    w->deleteLater();
    asking_ = false;
    const QDBusPendingReply<QStringList> reply = *w;
    // A service that cannot say is asked again at the next post; its posts go without buttons.
    if (!reply.isError()) showsActions_ = reply.value().contains("actions");
    const std::vector<DesktopNotice> posts = std::move(waiting_);
    waiting_.clear();
    for (const DesktopNotice& notice : posts) Send(notice);
  });
}

void QtDesktopNotices::Send(const DesktopNotice& notice) {
  QStringList actions;
  if (showsActions_.value_or(false)) {
    for (const auto& [key, label] : notice.actions) {
      actions << QString::fromStdString(key) << QString::fromStdString(label);
    }
  }
  QDBusMessage notify = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Notify");
  notify << QStringLiteral("Scheduler")          // app_name
         << 0u                                   // replaces_id: a new notification
         << QStringLiteral("x-office-calendar")  // app_icon
         << QString::fromStdString(notice.summary) << QString::fromStdString(notice.body) << actions
         << QVariantMap()  // hints
         << -1;            // expire_timeout: as the service likes
  const QDBusPendingCall call = bus_.asyncCall(notify);
  // Only a notification with buttons needs the service's number of it, to know it when one is
  // pressed.
  if (actions.isEmpty()) return;
  auto* watcher = new QDBusPendingCallWatcher(call, this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, id = notice.id](QDBusPendingCallWatcher* w) {
            w->deleteLater();
            const QDBusPendingReply<uint> reply = *w;
            if (!reply.isError()) withActions_[reply.value()] = id;
          });
}

void QtDesktopNotices::ActionInvoked(uint serviceId, const QString& key) {
  const auto found = withActions_.find(serviceId);
  if (found == withActions_.end()) return;  // another program's notification
  const int id = found->second;
  withActions_.erase(found);
  if (event_) event_(id, key.toStdString());
}

void QtDesktopNotices::NotificationClosed(uint serviceId, uint) {
  withActions_.erase(serviceId);
}

}  // namespace sched
