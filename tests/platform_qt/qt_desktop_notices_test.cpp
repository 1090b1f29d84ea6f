// Runs on a private session bus of its own (see CMakeLists.txt), where the test plays the
// desktop's notification service.
#include "platform/qt/qt_desktop_notices.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTest>
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

// The notification service's one call we use, noting what arrives.
class FakeNotificationService : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  std::vector<ReceivedNotice> received;

 public slots:
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
    notices.Post(summary, body);
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
    EXPECT_TRUE(notice.actions.isEmpty());
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
  notices.Post("Lost", "no one listens");
  offTheBus.Post("Nowhere", "no bus");
  EXPECT_LT(posting.elapsed(), 1000);
  QTest::qWait(300);
  StartService();
  offTheBus.Post("Nowhere", "no bus");
  notices.Post("Found", "someone listens");
  ASSERT_TRUE(WaitForNotices(1));
  QTest::qWait(300);
  ASSERT_EQ(service_.received.size(), 1u);
  EXPECT_EQ(service_.received[0].summary, "Found");
}

}  // namespace
}  // namespace sched

#include "qt_desktop_notices_test.moc"
