#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <memory>
#include <vector>

#include "alarms/alarm_engine.h"
#include "commands/command_set.h"
#include "commands/command_table.h"
#include "commands/document_view.h"
#include "holidays/holiday_dialog_host.h"
#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/device_files.h"
#include "platform/help_browser.h"
#include "platform/holiday_calendar.h"
#include "platform/messages.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "printing/print_command.h"
#include "shell/app_state.h"
#include "store/schedule_store.h"
#include "ui/progress_panel.h"

namespace sched {

class CalendarViews;
class DocumentCommands;
class MonthTab;
class DayTab;
class FindPanel;
class HelpKeys;
struct FindResult;
class SchDT;
class TabCorner;

// What the main window works with besides its own controls.
struct SchMainServices {
  AppState& state;
  const Clock& clock;
  const DateFormatter& dates;
  DeviceFiles& device;
  SettingsStore& settings;
  Messages& messages;
  CalendarViews& views;
  CommandSet& commands;
  Registry& registry;
  HolidayCalendar& holidays;
  std::string pcAppsDir;  // the installation's country files
  AlarmEngine& alarms;    // today's alarms, and the hold of their notices while a dialog is open
  HelpBrowser& help;      // the manual's pages
};

// The main window: menus, toolbar and popups built from the command table, the two tabs, the
// date frame and the progress display. The commands it runs live in the command set; the
// window shows their results and opens the dialogs.
class SchMain : public QMainWindow, public DocumentView {
  Q_OBJECT

 public:
  explicit SchMain(SchMainServices services);

  // The document and its file commands, once the store exists.
  void Attach(DocumentCommands* commands, ScheduleStore* store) {
    commands_ = commands;
    store_ = store;
    doc_ = &store->Document();
  }

  QAction* Action(const QString& name) const { return actions_.value(name); }
  QAction* ToolButton(const QString& key) const { return buttons_.value(key); }
  QTabWidget* Tabs() const { return SSTab1; }
  QLabel* DateLabel() const { return lblDate; }
  QLabel* ProgressCaption() const { return progress_->Caption(); }
  QProgressBar* Progress() const { return progress_->Bar(); }
  ProgressPanel& ProgressDisplay() { return *progress_; }
  QTimer* DayTimer() const { return Timer2; }
  MonthTab* MonthPage() const { return monthTab_; }
  DayTab* DayPage() const { return dayTab_; }
  SchDT* ScheduleListDialog() const { return schDT_; }
  QLabel* Label6() const { return label6_; }
  QMenu* Popup(const QString& name) const { return popups_.value(name).menu; }
  QPushButton* TodayButton() const { return ComToday; }
  FindPanel* FindPanelShown() const { return findPanel_; }

  // Starts the clock of the date frame: the first tick comes after a minute, or after three
  // seconds in the last minute of the day.
  void StartTimer2();
  // Watches for a new day, which rebuilds today's alarms, shows the date and time of now in the
  // date frame and sets the next interval.
  void Timer2_Timer();
  // The data link menu and its settings show when the link component is installed.
  void ShowLinkMenu(bool shown);
  // The window's place from the last run, or the centre of the screen.
  void RestoreWindowPlacement();
  void SaveWindowPlacement();

  // DocumentView
  void SetTitle(const std::string& title) override;
  void ShowFirstTab() override;
  void HideScheduleList() override;
  void BringToFront() override;
  void ShowViews() override;
  void ShowMenus() override;

 signals:
  // A file was dropped on the window or on the tabs.
  void FileDropped(const QString& path);
  // The window was brought to the top, as a second start asks.
  void BroughtToFront();
  // The window closes and the program ends.
  void Unloading();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  // A command's menu entry or toolbar button, enabled by the command's rule at its place.
  struct CommandAction {
    QAction* action;
    CommandId id;
    CommandPlace place;
  };
  struct PopupMenu {
    QMenu* menu;
    std::vector<CommandAction> entries;
  };

  void BuildMenus();
  void BuildToolbar();
  void BuildCentre();
  void BuildPopups();
  // Adds the entries of `definition` to `menu`; each command entry goes to `actions`.
  void AddEntries(QMenu* menu, const MenuDefinition& definition, CommandPlace place,
                  std::vector<CommandAction>& actions);
  void BindWindowCommands();
  QAction* ActionOf(CommandId id) const;
  // Runs what an event of the views asks for, then shows their new state.
  void RunViewAction(const ViewAction& action);
  void ShowPopup(const QString& name, const PopupItems& items);
  void SSTab1_Click(int tab);
  void GoToday();
  void ApplyFocus();
  // Form_Resize: both tabs' controls from the size of the tab's pages.
  void LayoutViews();
  void UpdateListFrame();
  void ShowScheduleListDialog();
  // "&Find...": the find panel, made when first asked for; a found item is shown on the day tab.
  void ShowFindPanel();
  void GoToFound(const FindResult& result);
  double ViewDpi() const;
  void ShowAbout();
  // The manual's page of the window: of the shown tab.
  std::string HelpPage();
  // Runs a dialog of the window with alarm notices held back until it closes.
  int ExecHeld(QDialog& dialog);
  void ShowClock();
  void MenuDefine_Open();
  // The holiday dialogs: the weekly holidays, the current date's mark, the country file.
  void ShowWeekHolidayDialog();
  void ShowDayHolidayDialog();
  void SelectHolidayInfo_Click();
  // Runs after a dialog that let the views' popups and clicks wait.
  void AfterHolidayDialog();
  HolidayDialogHost& HolidayHost();
  void MenuCheckMsg_Click();
  // The code page of the files read and written next, kept for the next start.
  void ChooseCodePage(CodePage page);
  // "&Print..." and "Print Pre&view...": the range, then the printer or the preview.
  void RunPrintCommand(bool preview);
  bool AcceptsDrop(const QMimeData* mime) const;

  SchMainServices s_;
  DocumentCommands* commands_ = nullptr;
  ScheduleStore* store_ = nullptr;
  const ScheduleDocument* doc_ = nullptr;
  std::unique_ptr<HolidayDialogHost> holidayHost_;
  std::unique_ptr<PrintHost> printHost_;
  std::unique_ptr<ProgressPanel> progress_;
  std::vector<CommandAction> commandActions_;  // the menu bar's entries and the toolbar's buttons
  QMap<QString, QAction*> actions_;            // by name, for a look from outside
  QMap<QString, QAction*> buttons_;
  QMap<QString, PopupMenu> popups_;
  MonthTab* monthTab_ = nullptr;
  DayTab* dayTab_ = nullptr;
  SchDT* schDT_ = nullptr;
  QLabel* label6_ = nullptr;
  QWidget* monthBar_ = nullptr;
  TabCorner* corner_ = nullptr;
  FindPanel* findPanel_ = nullptr;
  HelpKeys* helpKeys_ = nullptr;

  QToolBar* Toolbar1 = nullptr;
  QMenu* PcLink = nullptr;
  QMenu* DelCTRL = nullptr;
  QTabWidget* SSTab1 = nullptr;
  QLabel* lblDate = nullptr;
  QPushButton* ComToday = nullptr;
  QTimer* Timer2 = nullptr;
};

}  // namespace sched
