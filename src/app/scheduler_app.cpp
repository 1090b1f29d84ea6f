#include "app/scheduler_app.h"

#include <filesystem>
#include <iostream>
#include <utility>

#include "commands/undo_commands.h"
#include "core/app_texts.h"
#include "core/calendar.h"
#include "link/caldav_etags.h"
#include "shell/device_service.h"
#include "shell/install.h"
#include "shell/settings.h"
#include "ui/form_csv.h"
#include "views/calendar_views.h"

namespace sched {

SchedulerApp::SchedulerApp(AppPorts ports, InstallSource source)
    : p_(ports),
      source_(std::move(source)),
      noticeWindows_(p_.dates),
      alarmMark_(p_.settings),
      alarms_(AlarmServices{doc_.Tables, p_.clock, p_.clockAlarm, p_.beep, p_.desktop,
                            noticeWindows_, alarmMark_, std::cerr}),
      messages_(p_.messages, alarms_) {}

// Here, where the views are a complete type; the window, made after them, goes first.
SchedulerApp::~SchedulerApp() = default;

std::optional<int> SchedulerApp::Start(const QStringList& arguments) {
  const DateTime now = p_.clock.Now();
  std::string why;
  const auto installDir =
      InstallDirForStart(p_.registry, p_.settings, source_, {now.year, now.month, now.day}, why);
  if (!installDir) {
    std::cerr << "scheduler: " << why << "\n";
    return 0;
  }
  if (instance_.ActivateRunningInstance()) {
    state_.ExitNoSave = true;
    return 0;
  }
  paths_ = MakeInstallPaths(*installDir);
  LinkEditor();
  if (!OpenCountryFile(p_.registry, p_.holidays, messages_, paths_, state_)) return 1;
  CheckPimDataDir(paths_, messages_);
  state_.LastPcDir = paths_.PimDataDir;

  device_ = std::make_unique<CacheDeviceFiles>(
      paths_.DeviceCacheDir, DeviceServiceWindows{&p_.chooser, &messages_, &setupDialog_});
  views_ = std::make_unique<CalendarViews>(
      ViewServices{doc_, state_.Holidays, p_.dates, p_.clock, messages_});
  window_ = std::make_unique<SchMain>(
      SchMainServices{state_, p_.clock, p_.dates, *device_, p_.settings, messages_, *views_,
                      commandSet_, p_.registry, p_.holidays, paths_.PcAppsDir, alarms_, p_.help});
  noticeWindows_.SetMainWindow(window_.get());
  ProgressDisplay& progress = window_->ProgressDisplay();
  store_ = std::make_unique<ScheduleStore>(doc_, StoreServices{alarms_, progress, p_.clock});
  session_ = std::make_unique<DocumentSession>(
      SessionServices{*store_, *views_, *window_, messages_, progress, *device_, p_.settings,
                      p_.clock, paths_.SystemIniPath});
  commands_ = std::make_unique<DocumentCommands>(
      DocumentServices{*session_, *window_, alarms_, messages_, p_.dialogs, *device_, state_,
                       paths_.CacheDir, *session_});
  BindDocumentCommands(commandSet_, *commands_);
  commandSet_.Bind(CommandId::CsvSettingsDialog, [this] { ShowFormCsv(); });
  appointmentDialogs_ = std::make_unique<QtAppointmentDialogs>(window_.get());
  editMedia_ = std::make_unique<EditDialogMedia>(
      EditDialogMediaServices{{messages_, p_.player, p_.clock, &p_.progressWindow},
                              p_.processes,
                              *appointmentDialogs_,
                              paths_.InstallDir,
                              paths_.SoundCacheDir});
  appointments_ = std::make_unique<AppointmentCommands>(
      AppointmentServices{*session_, *views_, *appointmentDialogs_, alarms_, messages_, p_.clock,
                          p_.dates, *device_, state_, editMedia_.get()});
  BindAppointmentCommands(commandSet_, *appointments_);
  StartLink();
  linkCommands_ = std::make_unique<LinkCommands>(
      LinkServices{*session_, *linkComponent_, *linkDialogs_, alarms_, messages_, p_.settings,
                   p_.clock, paths_.PimDataDir});
  BindLinkCommands(commandSet_, *linkCommands_);
  commandSet_.Bind(CommandId::LinkSettings, [this] {
    const NoticesHeldWhile held(alarms_);
    linkDialogs_->ShowLinkSettings();
  });
  commandSet_.Bind(CommandId::WordLists,
                   [this] { StartWordListEditor(p_.processes, messages_, paths_.InstallDir); });
  BindUndoCommands(commandSet_, *session_);
  window_->Attach(commands_.get(), store_.get());
  store_->History().Record(true);
  commandSet_.RecordSteps(&store_->History(), [this] { window_->ShowMenus(); });
  setupDialog_.SetParent(window_.get());
  QObject::connect(window_.get(), &SchMain::FileDropped, window_.get(),
                   [this](const QString& path) { commands_->OpenFileByName(path.toStdString()); });
  QObject::connect(window_.get(), &SchMain::Unloading, window_.get(), [this] {
    alarms_.SaveLastChecked();
    noticeWindows_.CloseNoticeWindows();
  });

  doc_.FileCodePage = ReadCodePage(p_.settings);
  session_->ResetToToday(true);
  window_->SetTitle(kUntitledCaption);
  window_->RestoreWindowPlacement();
  OpenStartFile(arguments.size() > 1 ? arguments.at(1) : QString());

  window_->ShowLinkMenu(IsPimLinkInstalled(p_.registry));
  window_->StartTimer2();
  window_->show();
  // Over the window: what rang while the program was closed. A start that ran into a new day
  // lists the new day's alarms.
  alarms_.ShowAlarmsMissedWhileClosed();
  alarms_.WatchDayChange();
  alarms_.ArmNextAlarm();
  session_->RefreshViews();
  instance_.Listen([this] { window_->BringToFront(); });
  return std::nullopt;
}

void SchedulerApp::StartLink() {
  http_ = std::make_unique<QtHttpClient>(window_.get());
  linkDialogs_ = std::make_unique<QtLinkDialogs>(QtLinkDialogs::Services{
      window_.get(), p_.settings, messages_, p_.clock, [this] { return AlarmSoundNames(*device_); },
      editMedia_.get(), p_.dialogs, paths_.PimDataDir,
      [this](const std::string& url, const std::string& user) {
        return TestConnection(*http_, *serverPassword_, url, user);
      }});
  serverPassword_ = std::make_unique<CalDavPassword>(
      p_.secrets,
      [this](const std::string& account) { return linkDialogs_->AskServerPassword(account); });
  fileLink_ = std::make_unique<IcsLinkComponent>(IcsLinkComponent::Services{
      [this] { return LinkCalendarPath(p_.settings, paths_.PimDataDir); },
      [this] { return doc_.FileCodePage; }, p_.clock});
  const auto account = [this] {
    return AccountKey(ReadLinkServerUrl(p_.settings), ReadLinkServerUser(p_.settings));
  };
  serverLink_ = std::make_unique<CalDavLinkComponent>(CalDavLinkComponent::Services{
      *http_, messages_, p_.clock, [this] { return ReadLinkServerUrl(p_.settings); },
      [this] { return ReadLinkServerUser(p_.settings); },
      [this, account] { return serverPassword_->Of(account()); },
      [this, account] { serverPassword_->Refused(account()); },
      [this] { return doc_.FileCodePage; },
      [this] {
        const DateTime now = p_.clock.Now();
        return PeriodOfOptions(ReadImportOptions(p_.settings), {now.year, now.month, now.day});
      },
      CalDavEtags::Folder()});
  linkComponent_ = std::make_unique<ChosenLinkComponent>(p_.settings, *fileLink_, *serverLink_);
}

void SchedulerApp::LinkEditor() {
  for (const std::string& program : source_.editorPrograms) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(program, error)) continue;
    InstallReport report;
    Installer installer(report);
    LinkWordListEditor(installer, paths_.PcAppsDir, program);
    return;
  }
}

void SchedulerApp::ShowFormCsv() {
  FormCsvTimer timer;
  FormCsvModel model(
      {messages_, p_.dialogs, alarms_, p_.settings, timer, doc_.FileCodePage, state_.LastPcDir});
  model.Form_Load();
  FormCsv dialog(model, timer, window_.get());
  const NoticesHeldWhile held(alarms_);
  dialog.exec();
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
