// GUI tests run the real windows on the offscreen platform, on its screens as a test run may
// give them ("offscreen:configfile=...").
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  if (!qEnvironmentVariable("QT_QPA_PLATFORM").startsWith("offscreen")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
