#include "platform/qt/qt_desktop_notices.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace sched {
namespace {

const char kService[] = "org.freedesktop.Notifications";
const char kPath[] = "/org/freedesktop/Notifications";
const char kInterface[] = "org.freedesktop.Notifications";

}  // namespace

QtDesktopNotices::QtDesktopNotices(QDBusConnection bus) : bus_(std::move(bus)) {}

void QtDesktopNotices::Post(const std::string& summary, const std::string& body) {
  if (!bus_.isConnected()) return;
  QDBusMessage notify = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Notify");
  notify << QStringLiteral("Scheduler")          // app_name
         << 0u                                   // replaces_id: a new notification
         << QStringLiteral("x-office-calendar")  // app_icon
         << QString::fromStdString(summary) << QString::fromStdString(body)
         << QStringList()  // actions
         << QVariantMap()  // hints
         << -1;            // expire_timeout: as the service likes
  // The reply, a notification id or an error, is of no use to us.
  bus_.asyncCall(notify);
}

}  // namespace sched
