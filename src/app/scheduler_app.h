#pragma once

#include <QStringList>
#include <memory>
#include <optional>

#include "alarms/alarm_engine.h"
#include "alarms/held_messages.h"
#include "app/single_instance.h"
#include "commands/appointment_commands.h"
#include "commands/command_set.h"
#include "commands/document_commands.h"
#include "commands/document_session.h"
#include "commands/link_commands.h"
#include "link/caldav_link_component.h"
#include "link/caldav_password.h"
#include "link/chosen_link_component.h"
#include "link/ics_link_component.h"
#include "media/edit_dialog_media.h"
#include "platform/help_browser.h"
#include "platform/holiday_calendar.h"
#include "platform/qt/qt_http_client.h"
#include "platform/registry.h"
#include "platform/secret_store.h"
#include "shell/app_state.h"
#include "shell/cache_device_files.h"
#include "shell/device_file_chooser.h"
#include "shell/paths.h"
#include "shell/settings.h"
#include "shell/startup.h"
#include "ui/appointment_dialogs.h"
#include "ui/disconnection_setup_dialog.h"
#include "ui/form1.h"
#include "ui/link_dialogs.h"
#include "ui/schmain.h"

namespace sched {

class CalendarViews;

// The outside world as the program meets it: the system's own in the program, fakes in tests.
struct AppPorts {
  Registry& registry;
  SettingsStore& settings;
  Messages& messages;
  FileDialogs& dialogs;
  const DateFormatter& dates;
  const Clock& clock;
  HolidayCalendar& holidays;
  DeviceFileChooser& chooser;
  ClockAlarm& clockAlarm;
  Beep& beep;
  DesktopNotices& desktop;
  SoundPlayer& player;
  Processes& processes;
  ProgressWindow& progressWindow;  // of a melody's conversion
  SecretStore& secrets;            // the password of the data link's server
  HelpBrowser& help;               // the manual's pages
};

// The whole program: the document, the main window and its commands, brought up in their
// order and ended by the main window.
class SchedulerApp {
 public:
  // `source` lays out the user's installation when none is registered; without it such a start
  // ends.
  explicit SchedulerApp(AppPorts ports, InstallSource source = {});
  ~SchedulerApp();

  // Brings the program up. Nothing when it runs; else the exit status of a start that ended
  // at once (no installation to be had, another instance running, a broken installation).
  std::optional<int> Start(const QStringList& arguments);

  SchMain* Window() const { return window_.get(); }
  DocumentSession* Session() const { return session_.get(); }
  CommandSet& CommandTable() { return commandSet_; }
  ScheduleDocument& Document() { return doc_; }
  const ScheduleDocument& Document() const { return doc_; }
  const AppState& State() const { return state_; }
  AlarmEngine& Alarms() { return alarms_; }
  QtNoticeWindows& NoticeWindows() { return noticeWindows_; }
  CalendarViews* Views() const { return views_.get(); }

 private:
  void OpenStartFile(const QString& commandLineFile);
  // The data link's components, the file and the server, and its dialogs.
  void StartLink();
  // The word list editor, linked into the installation where the program starts it.
  void LinkEditor();
  // The CSV mapping dialog, alarm notices held back while it is open.
  void ShowFormCsv();

  AppPorts p_;
  InstallSource source_;
  SingleInstance instance_;
  AppState state_;
  InstallPaths paths_;
  ScheduleDocument doc_;
  QtNoticeWindows noticeWindows_;
  SettingsAlarmCheckMark alarmMark_;
  AlarmEngine alarms_;
  HeldMessages messages_;  // every message box holds the alarm notices back
  DisconnectionSetupDialog setupDialog_;
  std::unique_ptr<CacheDeviceFiles> device_;
  CommandSet commandSet_;
  std::unique_ptr<CalendarViews> views_;
  std::unique_ptr<SchMain> window_;
  std::unique_ptr<ScheduleStore> store_;
  std::unique_ptr<DocumentSession> session_;
  std::unique_ptr<DocumentCommands> commands_;
  std::unique_ptr<QtAppointmentDialogs> appointmentDialogs_;
  std::unique_ptr<EditDialogMedia> editMedia_;
  std::unique_ptr<AppointmentCommands> appointments_;
  std::unique_ptr<IcsLinkComponent> fileLink_;
  std::unique_ptr<QtHttpClient> http_;
  std::unique_ptr<CalDavPassword> serverPassword_;
  std::unique_ptr<CalDavLinkComponent> serverLink_;
  std::unique_ptr<ChosenLinkComponent> linkComponent_;
  std::unique_ptr<QtLinkDialogs> linkDialogs_;
  std::unique_ptr<LinkCommands> linkCommands_;
};

}  // namespace sched
