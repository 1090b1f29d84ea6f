#include "app/scheduler_app.h"

#include "core/app_texts.h"
#include "core/calendar.h"
#include "shell/device_service.h"
#include "shell/settings.h"
#include "shell/startup.h"
#include "views/calendar_views.h"

namespace sched {

SchedulerApp::SchedulerApp(AppPorts ports) : p_(ports) {}

// Here, where the views are a complete type; the window, made after them, goes first.
SchedulerApp::~SchedulerApp() = default;

std::optional<int> SchedulerApp::Start(const QStringList& arguments) {
  const auto installDir = ReadInstallDir(p_.registry);
  if (!installDir) return 0;  // not installed: nothing to say
  if (instance_.ActivateRunningInstance()) {
    state_.ExitNoSave = true;
    return 0;
  }
  paths_ = MakeInstallPaths(*installDir);
  if (!OpenCountryFile(p_.registry, p_.holidays, p_.messages, paths_, state_)) return 1;
  CheckPimDataDir(paths_, p_.messages);
  state_.LastPcDir = paths_.PimDataDir;

  device_ = std::make_unique<CacheDeviceFiles>(
      paths_.DeviceCacheDir, DeviceServiceWindows{&p_.chooser, &p_.messages, &setupDialog_});
  views_ = std::make_unique<CalendarViews>(
      ViewServices{doc_, state_.Holidays, p_.dates, p_.clock, p_.messages});
  window_ = std::make_unique<SchMain>(
      SchMainServices{state_, p_.clock, p_.dates, *device_, p_.settings, p_.messages, *views_,
                      commandSet_, p_.registry, p_.holidays, paths_.PcAppsDir});
  ProgressDisplay& progress = window_->ProgressDisplay();
  store_ = std::make_unique<ScheduleStore>(doc_, StoreServices{alarms_.hooks, progress, p_.clock});
  session_ = std::make_unique<DocumentSession>(
      SessionServices{*store_, *views_, *window_, p_.messages, progress, *device_, p_.settings,
                      p_.clock, paths_.SystemIniPath});
  commands_ = std::make_unique<DocumentCommands>(DocumentServices{
      *session_, *window_, alarms_, p_.messages, p_.dialogs, *device_, state_, paths_.CacheDir});
  BindDocumentCommands(commandSet_, *commands_);
  appointmentDialogs_ = std::make_unique<QtAppointmentDialogs>(window_.get());
  appointments_ = std::make_unique<AppointmentCommands>(
      AppointmentServices{*session_, *views_, *appointmentDialogs_, alarms_, p_.messages, p_.clock,
                          p_.dates, *device_, state_});
  BindAppointmentCommands(commandSet_, *appointments_);
  window_->Attach(commands_.get(), store_.get());
  setupDialog_.SetParent(window_.get());
  QObject::connect(window_.get(), &SchMain::FileDropped, window_.get(),
                   [this](const QString& path) { commands_->OpenFileByName(path.toStdString()); });

  const DateTime now = p_.clock.Now();
  state_.TodayCode = DateCode(now.year, now.month, now.day);
  session_->ResetToToday(true);
  window_->SetTitle(kUntitledCaption);
  window_->RestoreWindowPlacement();
  OpenStartFile(arguments.size() > 1 ? arguments.at(1) : QString());

  window_->ShowLinkMenu(IsPimLinkInstalled(p_.registry));
  window_->StartTimer2();
  window_->show();
  session_->RefreshViews();
  instance_.Listen([this] { window_->BringToFront(); });
  return std::nullopt;
}

// The file named on the command line, else the last file of the previous run.
void SchedulerApp::OpenStartFile(const QString& commandLineFile) {
  std::string path = commandLineFile.toStdString();
  int onPc = 1;
  if (path.empty()) {
    const LastFile last = RestoreLastFile(p_.settings, *device_, kDayviewSection);
    if (!last.ok) return;
    path = last.path;
  }
  const ResolvedFile file = ResolveFileName(*device_, path);
  onPc = file.ScheduleOnPc;
  commands_->OpenAtStart(file.path, onPc);
}

}  // namespace sched
