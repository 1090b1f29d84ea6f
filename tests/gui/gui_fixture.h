#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>

#include "app/scheduler_app.h"
#include "core/registry_keys.h"
#include "holidays/country_calendar.h"
#include "platform/fake/fake_beep.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_clock_alarm.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_desktop_notices.h"
#include "platform/fake/fake_file_dialogs.h"
#include "platform/fake/fake_help_browser.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_processes.h"
#include "platform/fake/fake_progress_window.h"
#include "platform/fake/fake_registry.h"
#include "platform/fake/fake_secret_store.h"
#include "platform/fake/fake_settings_store.h"
#include "platform/fake/fake_sound_player.h"
#include "shell/install.h"
#include "tests/gui/picture_path.h"
#include "tests/support/fake_device_chooser.h"
#include "tests/support/temp_dir.h"

namespace sched {

// A program over fakes, with a real installation in a temporary folder. Each test has its own
// settings folder, so that its program is no other test's second instance.
class GuiTest : public ::testing::Test {
 public:
  GuiTest() {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(dir.File("config")));
    install = EnsureInstallation(registry, settings, SCHEDULER_DATA_DIR, dir.File("install"),
                                 {2026, 11, 21})
                  .installDir;
  }

  AppPorts Ports() {
    return {registry,   settings, messages, dialogs, dates,     clock,          holidays, chooser,
            clockAlarm, beep,     desktop,  player,  processes, progressWindow, secrets,  help};
  }

  // Starts the program with the arguments after the program's name.
  std::optional<int> Start(const QStringList& args = {}) {
    app = std::make_unique<SchedulerApp>(Ports());
    return app->Start(QStringList{"scheduler"} + args);
  }

  std::string Sample() const { return install + "/userdata/PIMdata/Sample.scl"; }

  TempDir dir;
  FakeRegistry registry;
  FakeSettingsStore settings;
  FakeMessages messages;
  FakeFileDialogs dialogs;
  FakeDateFormatter dates;
  FakeClock clock{{2026, 11, 21, 10, 30, 0}};
  CountryCalendar holidays;
  FakeDeviceChooser chooser;
  FakeClockAlarm clockAlarm;
  FakeBeep beep;
  FakeDesktopNotices desktop;
  FakeSoundPlayer player;
  FakeProcesses processes;
  FakeProgressWindow progressWindow;
  FakeSecretStore secrets{false};  // none: the server's password is asked once a session
  FakeHelpBrowser help;
  std::string install;
  std::unique_ptr<SchedulerApp> app;
};

}  // namespace sched
