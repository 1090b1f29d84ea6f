// Runs on a private session bus of its own (see CMakeLists.txt), where the test plays the
// desktop's notification service.
#include "platform/qt/qt_desktop_notices.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QVariantMap>
#include <string>
#include <utility>
#include <vector>

namespace sched {

struct ReceivedNotice {
  QString appName;
  uint replacesId;
  QString summary;
  QString body;
  QStringList actions;
  QVariantMap hints;
  int expireTimeout;
};

// The notification service's calls we use, noting what arrives; it shows buttons when its
// capabilities say "actions".
class FakeNotificationService : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  std::vector<ReceivedNotice> received;
  QStringList capabilities{"body"};

 public slots:
  QStringList GetCapabilities() { return capabilities; }
  uint Notify(const QString& appName, uint replacesId, const QString& appIcon,
              const QString& summary, const QString& body, const QStringList& actions,
              const QVariantMap& hints, int expireTimeout) {
    (void)appIcon;
    received.push_back({appName, replacesId, summary, body, actions, hints, expireTimeout});
    return static_cast<uint>(received.size());
  }
};

namespace {

const char kService[] = "org.freedesktop.Notifications";
const char kPath[] = "/org/freedesktop/Notifications";

// The service lives on a second connection of the same process, as another program would.
class DesktopNoticesTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(QDBusConnection::sessionBus().isConnected()); }
  void TearDown() override { StopService(); }

  void StartService() {
    ASSERT_TRUE(serviceBus_.isConnected());
    ASSERT_TRUE(serviceBus_.registerObject(kPath, &service_, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(serviceBus_.registerService(kService));
  }
  void StopService() {
    serviceBus_.unregisterService(kService);
    serviceBus_.unregisterObject(kPath);
  }
  bool WaitForNotices(std::size_t count) {
    return QTest::qWaitFor([&] { return service_.received.size() >= count; }, 5000);
  }

  QDBusConnection serviceBus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "fake");
  FakeNotificationService service_;
};

// The buttons the alarms offer.
const std::vector<std::pair<std::string, std::string>> kActions = {{"snooze", "Snooze 5 minutes"},
                                                                   {"dismiss", "Dismiss"}};

TEST_F(DesktopNoticesTest, ANoticeReachesTheService) {
  const std::pair<std::string, std::string> cases[] = {
      {"Dentist", "10:30 Dr. Brown"},
      {"Zahnarzt – Müller", "Termin um 10:30\nPraxis am Markt"},
      {"Meeting", ""},
  };
  StartService();
  QtDesktopNotices notices;
  for (const auto& [summary, body] : cases) {
    // The service answers on this very thread, so a post that waited for the answer would hang
    // here until the call timed out.
    QElapsedTimer posting;
    posting.start();
    notices.Post({1, summary, body, kActions});
    EXPECT_LT(posting.elapsed(), 1000) << summary;
  }
  ASSERT_TRUE(WaitForNotices(std::size(cases)));
  ASSERT_EQ(service_.received.size(), std::size(cases));
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const ReceivedNotice& notice = service_.received[i];
    EXPECT_EQ(notice.appName, "Scheduler");
    EXPECT_EQ(notice.summary.toStdString(), cases[i].first);
    EXPECT_EQ(notice.body.toStdString(), cases[i].second);
    // A new notification each time, never one replacing another, for as long as the service
    // keeps its notices.
    EXPECT_EQ(notice.replacesId, 0u);
    EXPECT_TRUE(notice.actions.isEmpty()) << "the service shows no buttons";
    EXPECT_EQ(notice.expireTimeout, -1);
  }
}

// Without the service, or on a bus that is not there, a post is lost at once and quietly; later
// posts still arrive once the service is there, and the lost ones do not come back.
TEST_F(DesktopNoticesTest, WithoutTheServiceOrABusAPostIsLostQuietly) {
  QtDesktopNotices notices;
  QtDesktopNotices offTheBus(QDBusConnection("none"));
  QElapsedTimer posting;
  posting.start();
  notices.Post({1, "Lost", "no one listens", kActions});
  offTheBus.Post({2, "Nowhere", "no bus", kActions});
  EXPECT_LT(posting.elapsed(), 1000);
  QTest::qWait(300);
  StartService();
  offTheBus.Post({3, "Nowhere", "no bus", {}});
  notices.Post({4, "Found", "someone listens", {}});
  ASSERT_TRUE(WaitForNotices(1));
  QTest::qWait(300);
  ASSERT_EQ(service_.received.size(), 1u);
  EXPECT_EQ(service_.received[0].summary, "Found");
}

// A service that shows buttons gets them; a press of one reaches the program as the post's own
// number and the button's key, once. Presses on other programs' notifications, or on one the
// service has closed, are not the program's.
TEST_F(DesktopNoticesTest, TheButtonsOfAServiceThatShowsThemAnswerThePost) {
  service_.capabilities = {"actions", "body"};
  StartService();
  QtDesktopNotices notices;
  std::vector<std::string> picked;
  notices.SetActionEvent(
      [&](int id, const std::string& key) { picked.push_back(std::to_string(id) + " " + key); });
  notices.Post({7, "Dentist", "9:00am - 9:30am", kActions});
  notices.Post({8, "Call", "9:00am - 9:30am", kActions});
  ASSERT_TRUE(WaitForNotices(2));
  EXPECT_EQ(service_.received[0].actions,
            QStringList({"snooze", "Snooze 5 minutes", "dismiss", "Dismiss"}));
  QTest::qWait(200);  // the service's numbers of the notices come back

  const auto signal = [&](const char* name, uint serviceId, const QVariant& argument) {
    QDBusMessage message = QDBusMessage::createSignal(kPath, kService, name);
    message << serviceId << argument;
    serviceBus_.send(message);
  };
  signal("ActionInvoked", 2, QString("dismiss"));  // Call's
  signal("ActionInvoked", 99, QString("snooze"));  // another program's
  signal("NotificationClosed", 1, 2u);             // Dentist's, closed by the service
  signal("ActionInvoked", 1, QString("snooze"));
  signal("ActionInvoked", 2, QString("snooze"));  // Call's again
  QTest::qWait(300);
  EXPECT_EQ(picked, std::vector<std::string>{"8 dismiss"});
}

}  // namespace
}  // namespace sched

#include "qt_desktop_notices_test.moc"
