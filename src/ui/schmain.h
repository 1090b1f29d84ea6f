#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/device_files.h"
#include "platform/holiday_calendar.h"
#include "platform/messages.h"
#include "platform/registry.h"
#include "platform/progress_display.h"
#include "platform/settings_store.h"
#include "shell/app_state.h"
#include "shell/shell_window.h"
#include "holidays/holiday_dialog_host.h"
#include "store/schedule_store.h"

namespace sched {

class CalendarViews;
class DocumentCommands;
class MonthTab;
class DayTab;
class SchDT;
struct PopupItems;
struct ViewAction;

// What the main window works with besides its own controls.
struct SchMainServices {
  AppState& state;
  const Clock& clock;
  const DateFormatter& dates;
  DeviceFiles& device;
  SettingsStore& settings;
  Messages& messages;
  CalendarViews& views;
  Registry& registry;
  HolidayCalendar& holidays;
  std::string pcAppsDir;  // the installation's country files
};

// The main window: menus, toolbar, the two tabs, the date frame and the progress display. The
// commands it runs live in the shell; the window only shows their results.
class SchMain : public QMainWindow, public ShellWindow, public ProgressDisplay {
  Q_OBJECT

 public:
  explicit SchMain(SchMainServices services);

  // The document, its store and its commands, once the store exists.
  void Attach(DocumentCommands* commands, ScheduleStore* store) {
    commands_ = commands;
    store_ = store;
    doc_ = &store->Document();
  }

  QAction* Action(const QString& name) const { return actions_.value(name); }
  QAction* ToolButton(const QString& key) const { return buttons_.value(key); }
  QTabWidget* Tabs() const { return SSTab1; }
  QLabel* DateLabel() const { return lblDate; }
  QLabel* ProgressCaption() const { return LabelProgress; }
  QProgressBar* Progress() const { return ProgressBar; }
  QTimer* DayTimer() const { return Timer2; }
  MonthTab* MonthPage() const { return monthTab_; }
  DayTab* DayPage() const { return dayTab_; }
  SchDT* ScheduleListDialog() const { return schDT_; }
  QLabel* Label6() const { return label6_; }
  QMenu* Popup(const QString& name) const { return popups_.value(name); }
  QPushButton* TodayButton() const { return ComToday; }

  // Starts the clock of the date frame: the first tick comes after a minute, or after three
  // seconds in the last minute of the day.
  void StartTimer2();
  // Shows the date and time of now in the date frame and sets the next interval.
  void Timer2_Timer();
  // The data link menu shows when the link component is installed.
  void ShowLinkMenu(bool shown);
  // The window's place from the last run, or the centre of the screen.
  void RestoreWindowPlacement();
  void SaveWindowPlacement();

  // ShellWindow
  void SetTitle(const std::string& title) override;
  void ShowFirstTab() override;
  void EnableSaveButton() override;
  void DisableDeleteMonthYear() override;
  void BringToFront() override;
  void ResetToToday() override;
  void StoreLastFile() override;
  void HideScheduleList() override;
  void RefreshViews() override;
  void ShowDate(int year, int month, int day) override;
  void ClearDayLists() override;
  void UpdateMenus() override;
  void EnableMonthCommands() override;
  void RedrawShownTab() override;
  void DisableSclDel() override;
  void RefreshScheduleList() override;

  // ProgressDisplay
  void SetCaption(const std::string& text) override;
  void SetValue(int value) override;
  void SetVisible(bool visible) override;
  void Refresh() override;
  void SetWaitPointer(bool waiting) override;

 signals:
  // A file was dropped on the window or on the tabs.
  void FileDropped(const QString& path);
  // The window was brought to the top, as a second start asks.
  void BroughtToFront();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void BuildMenus();
  void BuildToolbar();
  void BuildCentre();
  void BuildPopups();
  QMenu* AddPopup(const QString& name, const QString& prefix, bool withItems);
  // Shows the views' state in the tabs, the date label, the list dialog and the menus.
  void ShowViews();
  // Runs what an event of the views asks for, then shows their new state.
  void RunViewAction(const ViewAction& action);
  void ShowPopup(const QString& name, const PopupItems& items);
  // The menu entries and buttons by the views; a command not yet in the program stays off.
  void ApplyMenus();
  void Enable(const QString& name, bool enabled);
  void SSTab1_Click(int tab);
  void GoToday();
  void ApplyFocus();
  // Form_Resize: both tabs' controls from the size of the tab's pages.
  void LayoutViews();
  void UpdateListFrame();
  double ViewDpi() const;
  QAction* AddAction(QMenu* menu, const QString& name, const QString& caption,
                     std::function<void()> run = {});
  void RunCommand(void (DocumentCommands::*command)());
  void ShowAbout();
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
  bool AcceptsDrop(const QMimeData* mime) const;

  SchMainServices s_;
  DocumentCommands* commands_ = nullptr;
  ScheduleStore* store_ = nullptr;
  const ScheduleDocument* doc_ = nullptr;
  std::unique_ptr<HolidayDialogHost> holidayHost_;
  QMap<QString, QAction*> actions_;
  QMap<QString, QAction*> buttons_;
  QSet<QString> built_;  // entries and buttons whose command the program has
  QMap<QString, QMenu*> popups_;
  MonthTab* monthTab_ = nullptr;
  DayTab* dayTab_ = nullptr;
  SchDT* schDT_ = nullptr;
  QLabel* label6_ = nullptr;
  QWidget* monthBar_ = nullptr;

  QToolBar* Toolbar1 = nullptr;
  QMenu* PcLink = nullptr;
  QTabWidget* SSTab1 = nullptr;
  QLabel* LabelProgress = nullptr;
  QProgressBar* ProgressBar = nullptr;
  QLabel* lblDate = nullptr;
  QPushButton* ComToday = nullptr;
  QTimer* Timer2 = nullptr;
};

}  // namespace sched
