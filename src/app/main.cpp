// scheduler: the desktop companion of the Tarvex organiser.
#include <QApplication>
#include <QDir>
#include <QTimer>

#include "app/scheduler_app.h"
#include "holidays/country_calendar.h"
#include "platform/qt/qt_beep.h"
#include "platform/qt/qt_clock_alarm.h"
#include "platform/qt/qt_date_formatter.h"
#include "platform/qt/qt_desktop_notices.h"
#include "platform/qt/qt_file_dialogs.h"
#include "platform/qt/qt_help_browser.h"
#include "platform/qt/qt_messages.h"
#include "platform/qt/qt_processes.h"
#include "platform/qt/qt_progress_window.h"
#include "platform/qt/qt_registry.h"
#include "platform/qt/qt_secret_store.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_sound_player.h"
#include "platform/std/system_clock.h"
#include "shell/install.h"
#include "ui/device_file_dialog.h"

namespace {

// The shipped data as installed beside the program.
QString InstalledData() {
  return QDir::cleanPath(QApplication::applicationDirPath() + "/" SCHEDULER_INSTALLED_DATA);
}

// Where a user without an installation gets one from: the data installed beside the program,
// else the data of the tree it was built from, laid out in the user's data folder.
sched::InstallSource UserInstallSource() {
  return {{InstalledData().toStdString(), SCHEDULER_DATA_DIR},
          sched::DefaultInstallDir(qEnvironmentVariable("XDG_DATA_HOME").toStdString(),
                                   QDir::homePath().toStdString()),
          {(QApplication::applicationDirPath() + "/mksbjct").toStdString(),
           SCHEDULER_EDITOR_BUILD_PATH}};
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Scheduler");
  QApplication::setOrganizationName("Sorvane");

  sched::QtRegistry registry;
  sched::QtSettingsStore settings;
  sched::QtMessages messages;
  sched::QtFileDialogs dialogs;
  sched::QtDateFormatter dates;
  sched::SystemClock clock;
  sched::CountryCalendar holidays;
  sched::DeviceFileDialog chooser;
  sched::QtClockAlarm clockAlarm;
  sched::QtBeep beep;
  sched::QtDesktopNotices desktop;
  sched::QtSoundPlayer player;
  sched::QtProcesses processes;
  sched::QtProgressWindow progressWindow;
  sched::QtSecretStore secrets;
  sched::QtHelpBrowser help(sched::ManualFolder(SCHEDULER_INSTALLED_DATA, SCHEDULER_DATA_DIR));
  sched::SchedulerApp scheduler(
      {registry, settings, messages, dialogs, dates, clock, holidays, chooser, clockAlarm, beep,
       desktop, player, processes, progressWindow, secrets, help},
      UserInstallSource());
  if (const auto ended = scheduler.Start(QApplication::arguments())) return *ended;
  messages.SetParent(scheduler.Window());
  dialogs.SetParent(scheduler.Window());
  chooser.SetParent(scheduler.Window());
  player.SetOwner(scheduler.Window());
  progressWindow.SetOwner(scheduler.Window());

  // For a look at the window without a screen: save a picture of it and end.
  const QString screenshot = qEnvironmentVariable("SCHEDULER_SCREENSHOT");
  if (!screenshot.isEmpty()) {
    QTimer::singleShot(1500, [&] {
      scheduler.Window()->grab().save(screenshot);
      QApplication::exit(0);
    });
  }
  return QApplication::exec();
}
