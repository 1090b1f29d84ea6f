#pragma once

#include <QLabel>
#include <QMainWindow>
#include <functional>
#include <QMap>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/device_files.h"
#include "platform/progress_display.h"
#include "platform/settings_store.h"
#include "shell/app_state.h"
#include "shell/shell_window.h"
#include "store/document.h"

namespace sched {

class DocumentCommands;

// What the main window works with besides its own controls.
struct SchMainServices {
  AppState& state;
  const Clock& clock;
  const DateFormatter& dates;
  DeviceFiles& device;
  SettingsStore& settings;
};

// The main window: menus, toolbar, the two tabs, the date frame and the progress display. The
// commands it runs live in the shell; the window only shows their results.
class SchMain : public QMainWindow, public ShellWindow, public ProgressDisplay {
  Q_OBJECT

 public:
  explicit SchMain(SchMainServices services);

  // The document and its commands, once the store exists.
  void Attach(DocumentCommands* commands, const ScheduleDocument* doc) {
    commands_ = commands;
    doc_ = doc;
  }

  QAction* Action(const QString& name) const { return actions_.value(name); }
  QAction* ToolButton(const QString& key) const { return buttons_.value(key); }
  QTabWidget* Tabs() const { return SSTab1; }
  QLabel* DateLabel() const { return lblDate; }
  QLabel* ProgressCaption() const { return LabelProgress; }
  QProgressBar* Progress() const { return ProgressBar; }
  QTimer* DayTimer() const { return Timer2; }

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

 private:
  void BuildMenus();
  void BuildToolbar();
  void BuildCentre();
  QAction* AddAction(QMenu* menu, const QString& name, const QString& caption,
                     std::function<void()> run = {});
  void RunCommand(void (DocumentCommands::*command)());
  void ShowAbout();
  void ShowClock();
  void MenuDefine_Open();
  void MenuCheckMsg_Click();
  bool AcceptsDrop(const QMimeData* mime) const;

  SchMainServices s_;
  DocumentCommands* commands_ = nullptr;
  const ScheduleDocument* doc_ = nullptr;
  QMap<QString, QAction*> actions_;
  QMap<QString, QAction*> buttons_;

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
