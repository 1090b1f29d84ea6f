#include "ui/schmain.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QMenuBar>
#include <QMimeData>
#include <QMoveEvent>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "commands/document_commands.h"
#include "core/app_texts.h"
#include "link/link_settings.h"
#include "shell/clock_text.h"
#include "shell/paths.h"
#include "shell/settings.h"
#include "ui/about.h"
#include "ui/day_tab.h"
#include "ui/help_pages.h"
#include "ui/month_tab.h"
#include "ui/sch_dt.h"
#include "ui/screen_place.h"
#include "ui/tab_corner.h"
#include "ui/toolbar_icons.h"
#include "views/calendar_views.h"

namespace sched {

SchMain::SchMain(SchMainServices services) : s_(services) {
  setObjectName("schmain");
  setWindowTitle(kUntitledCaption);
  setAcceptDrops(true);
  setWindowIcon(QIcon(":/icons/scheduler.png"));
  helpKeys_ = new HelpKeys(s_.help, s_.messages, this, [this] { return HelpPage(); });
  qApp->installEventFilter(helpKeys_);
  BindWindowCommands();
  BuildMenus();
  BuildToolbar();
  BuildCentre();
  BuildPopups();
  Timer2 = new QTimer(this);
  Timer2->setObjectName("Timer2");
  connect(Timer2, &QTimer::timeout, this, &SchMain::Timer2_Timer);
  resize(1024, 720);
}

QList<QKeySequence> Shortcuts(StandardKey key) {
  switch (key) {
    case StandardKey::New: return {QKeySequence::New};
    case StandardKey::Open: return {QKeySequence::Open};
    case StandardKey::Save: return {QKeySequence::Save};
    case StandardKey::Print: return {QKeySequence::Print};
    case StandardKey::HelpContents: return {QKeySequence::HelpContents};
    case StandardKey::Find: return {QKeySequence::Find};
    case StandardKey::Undo: return {QKeySequence::Undo};
    // Both keys that desktops use, whichever the platform's theme names.
    case StandardKey::Redo:
      return {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)};
    case StandardKey::None: break;
  }
  return {};
}

// Puts the action into the group of one checked entry of its menu.
void JoinRadioGroup(QMenu* menu, QAction* action) {
  auto* group = menu->findChild<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly);
  if (group == nullptr) group = new QActionGroup(menu);
  group->addAction(action);
}

void SchMain::AddEntries(QMenu* menu, const MenuDefinition& definition, CommandPlace place,
                         std::vector<CommandAction>& actions) {
  std::vector<QMenu*> open{menu};
  for (const MenuEntry& e : definition.entries) {
    QMenu* into = open.back();
    switch (e.kind) {
      case MenuEntry::Kind::Separator: into->addSeparator(); break;
      case MenuEntry::Kind::Submenu:
        open.push_back(into->addMenu(QString::fromStdString(e.caption)));
        open.back()->setObjectName(QString::fromStdString(e.name));
        break;
      case MenuEntry::Kind::EndSubmenu: open.pop_back(); break;
      case MenuEntry::Kind::Command: {
        QAction* action = into->addAction(QString::fromStdString(e.caption));
        const QString name = QString::fromStdString(e.name);
        action->setObjectName(name);
        action->setShortcuts(Shortcuts(e.key));
        action->setCheckable(e.checkable);
        action->setChecked(e.checked);
        if (e.radio) JoinRadioGroup(into, action);
        if (!e.statusTip.empty()) {
          action->setStatusTip(QString::fromStdString(e.statusTip));
          action->setToolTip(action->statusTip());
          into->setToolTipsVisible(true);
        }
        action->setVisible(!e.hidden);
        action->setEnabled(s_.commands.Has(e.command));
        const CommandId id = e.command;
        connect(action, &QAction::triggered, this, [this, id] { s_.commands.Run(id); });
        actions.push_back({action, id, place});
        actions_.insert(name, action);
        break;
      }
    }
  }
}

void SchMain::BuildMenus() {
  for (const MenuDefinition& definition : MenuBarTable()) {
    QMenu* menu = menuBar()->addMenu(QString::fromStdString(definition.caption));
    menu->setObjectName(QString::fromStdString(definition.name));
    AddEntries(menu, definition, CommandPlace::Menu, commandActions_);
    if (definition.name == "EditCTL") {
      connect(menu, &QMenu::aboutToShow, this, [this] {
        s_.views.EditCTL_Open();
        ShowMenus();
      });
    } else if (definition.name == "DelCTRL") {
      DelCTRL = menu;
    } else if (definition.name == "PcLink") {
      PcLink = menu;
      connect(menu, &QMenu::aboutToShow, this, [this] {
        ActionOf(CommandId::LinkImportExported)->setChecked(ReadExpOption(s_.settings));
      });
    } else if (definition.name == "MenuDefine") {
      connect(menu, &QMenu::aboutToShow, this, &SchMain::MenuDefine_Open);
    }
  }
  ShowLinkMenu(false);
}

// The commands whose routines are the window's own: its dialogs, its end, its date.
void SchMain::BindWindowCommands() {
  CommandSet& c = s_.commands;
  c.Bind(CommandId::Exit, [this] { close(); });
  c.Bind(CommandId::WeekHolidays, [this] { ShowWeekHolidayDialog(); });
  c.Bind(CommandId::DayHolidays, [this] { ShowDayHolidayDialog(); });
  c.Bind(CommandId::SelectCountry, [this] { SelectHolidayInfo_Click(); });
  c.Bind(CommandId::Today, [this] { GoToday(); });
  c.Bind(CommandId::Find, [this] { ShowFindPanel(); });
  c.Bind(CommandId::AutoEditAlarm, [] {});  // only its check mark flips
  c.Bind(CommandId::RingAlarm,
         [this] { s_.alarms.BeepAlarm = ActionOf(CommandId::RingAlarm)->isChecked(); });
  c.Bind(CommandId::TransferMessage, [this] { MenuCheckMsg_Click(); });
  c.Bind(CommandId::LinkImportExported, [this] {
    SaveExpOption(s_.settings, ActionOf(CommandId::LinkImportExported)->isChecked());
  });
  c.Bind(CommandId::CodePageWestern, [this] { ChooseCodePage(CodePage::kWestern); });
  c.Bind(CommandId::CodePageJapanese, [this] { ChooseCodePage(CodePage::kJapanese); });
  c.Bind(CommandId::DisconnectionSetup, [this] {
    const NoticesHeldWhile held(s_.alarms);
    s_.device.Sor_SetupDisconnection();
  });
  c.Bind(CommandId::About, [this] { ShowAbout(); });
  c.Bind(CommandId::HelpContents, [this] { helpKeys_->ShowPage(kContentsPage); });
  c.Bind(CommandId::Print, [this] { RunPrintCommand(false); });
  c.Bind(CommandId::PrintPreview, [this] { RunPrintCommand(true); });
}

QAction* SchMain::ActionOf(CommandId id) const {
  for (const CommandAction& c : commandActions_) {
    if (c.id == id && c.place == CommandPlace::Menu) return c.action;
  }
  return nullptr;
}

void SchMain::BuildToolbar() {
  Toolbar1 = addToolBar("Toolbar");
  Toolbar1->setObjectName("Toolbar1");
  Toolbar1->setMovable(false);
  Toolbar1->setIconSize(QSize(24, 24));
  for (const ToolButtonDefinition& b : ToolbarTable()) {
    if (b.key.empty()) {
      Toolbar1->addSeparator();
      continue;
    }
    const QString key = QString::fromStdString(b.key);
    const QString tip = QString::fromStdString(b.tip);
    QAction* action = Toolbar1->addAction(ToolbarIcon(key), tip);
    action->setObjectName("Toolbar1." + key);
    action->setToolTip(tip);
    action->setEnabled(s_.commands.Has(b.command));
    const CommandId id = b.command;
    connect(action, &QAction::triggered, this, [this, id] {
      HideScheduleList();
      s_.commands.Run(id);
    });
    commandActions_.push_back({action, id, CommandPlace::Toolbar});
    buttons_.insert(key, action);
  }
}

void SchMain::BuildCentre() {
  auto* centre = new QWidget(this);
  auto* layout = new QVBoxLayout(centre);
  layout->setContentsMargins(8, 8, 8, 6);
  layout->setSpacing(6);

  SSTab1 = new QTabWidget(centre);
  SSTab1->setObjectName("SSTab1");
  SSTab1->setDocumentMode(false);
  const ViewActionSink sink = [this](const ViewAction& action) { RunViewAction(action); };
  monthTab_ = new MonthTab(s_.views, sink, SSTab1);
  dayTab_ = new DayTab(s_.views, sink, SSTab1);
  SSTab1->addTab(monthTab_, "Month");
  SSTab1->addTab(dayTab_, "Day");
  SSTab1->setAcceptDrops(true);
  SSTab1->installEventFilter(this);
  monthTab_->installEventFilter(this);
  dayTab_->installEventFilter(this);
  connect(SSTab1, &QTabWidget::currentChanged, this, &SchMain::SSTab1_Click);
  layout->addWidget(SSTab1, 1);

  // Beside the tab buttons: the month tab's month and year, and the date label of both tabs.
  monthBar_ = monthTab_->Bar();
  label6_ = new QLabel();
  label6_->setObjectName("Label6(1)");
  QFont dateFont = label6_->font();
  dateFont.setBold(true);
  label6_->setFont(dateFont);
  corner_ = new TabCorner(
      monthBar_, label6_, [this] { return TwipsPerPixel(ViewDpi()); }, SSTab1);
  SSTab1->setCornerWidget(corner_, Qt::TopRightCorner);

  auto* bottom = new QHBoxLayout();
  progress_ = std::make_unique<ProgressPanel>(centre);
  bottom->addWidget(progress_->Caption());
  bottom->addWidget(progress_->Bar());
  bottom->addStretch(1);

  auto* FrameDate = new QFrame(centre);
  FrameDate->setObjectName("FrameDate");
  FrameDate->setFrameShape(QFrame::StyledPanel);
  auto* frameLayout = new QHBoxLayout(FrameDate);
  frameLayout->setContentsMargins(10, 2, 4, 2);
  lblDate = new QLabel(FrameDate);
  lblDate->setObjectName("lblDate");
  lblDate->setMinimumWidth(190);
  ComToday = new QPushButton("&Today", FrameDate);
  ComToday->setObjectName("ComToday");
  connect(ComToday, &QPushButton::clicked, this, &SchMain::GoToday);
  frameLayout->addWidget(lblDate);
  frameLayout->addWidget(ComToday);
  bottom->addWidget(FrameDate);
  layout->addLayout(bottom);
  setCentralWidget(centre);
}

void SchMain::StartTimer2() {
  Timer2->setInterval(Timer2FirstInterval(s_.clock.Now()));
  ShowClock();
  Timer2->start();
}

void SchMain::Timer2_Timer() {
  const DateTime now = s_.clock.Now();
  Timer2->stop();
  s_.alarms.WatchDayChange();
  Timer2->setInterval(Timer2Interval(now));
  Timer2->start();
  ShowClock();
}

void SchMain::ShowClock() {
  lblDate->setText(QString::fromStdString(DateCaption(s_.dates, s_.clock.Now())));
}

void SchMain::SetTitle(const std::string& title) {
  setWindowTitle(QString::fromStdString(title));
}

void SchMain::ShowFirstTab() {
  SSTab1->setCurrentIndex(0);
}

void SchMain::HideScheduleList() {
  s_.views.List().Visible = false;
  if (schDT_ != nullptr) schDT_->hide();
}

void SchMain::BringToFront() {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  QApplication::processEvents();
  emit BroughtToFront();
}

void SchMain::MenuDefine_Open() {
  ActionOf(CommandId::TransferMessage)
      ->setChecked(s_.settings.GetSetting(kSettingsApp, "Global", "MsgDsp", "0") == "0");
  const bool japanese = doc_->FileCodePage == CodePage::kJapanese;
  ActionOf(japanese ? CommandId::CodePageJapanese : CommandId::CodePageWestern)->setChecked(true);
  ActionOf(CommandId::CodePageJapanese)->setEnabled(ShiftJisAvailable());
}

void SchMain::ChooseCodePage(CodePage page) {
  store_->Document().FileCodePage = page;
  SaveCodePage(s_.settings, page);
}

void SchMain::MenuCheckMsg_Click() {
  // The action has already flipped its mark.
  const bool checked = ActionOf(CommandId::TransferMessage)->isChecked();
  s_.settings.SaveSetting(kSettingsApp, "Global", "MsgDsp", checked ? "0" : "1");
}

int SchMain::ExecHeld(QDialog& dialog) {
  const NoticesHeldWhile held(s_.alarms);
  return dialog.exec();
}

void SchMain::ShowAbout() {
  GlobalVersion about(ReadInstallDir(s_.registry).value_or(""), this);
  ExecHeld(about);
}

std::string SchMain::HelpPage() {
  // The schedule list belongs to the month tab and goes before the browser comes up.
  if (SSTab1->currentIndex() == 0) HideScheduleList();
  return std::string(HelpPageOf(SSTab1->currentWidget()->objectName().toStdString()));
}

// The end of the program: the question for unsaved changes, the device's disconnection and
// the window's place. Either of the first two can keep the program running.
void SchMain::closeEvent(QCloseEvent* event) {
  HideScheduleList();
  const bool ask = !s_.state.ExitNoSave;
  if ((ask && commands_ != nullptr && !commands_->AskSaveChanges()) ||
      s_.device.Sor_DoDisconnect() != 0) {
    event->ignore();
    return;
  }
  if (ask) SaveWindowPlacement();
  event->accept();
  emit Unloading();
}

void SchMain::ShowLinkMenu(bool shown) {
  PcLink->menuAction()->setVisible(shown);
  ActionOf(CommandId::LinkSettings)->setVisible(shown);
}

void SchMain::RestoreWindowPlacement() {
  const auto placement = ReadWindowPlacement(s_.settings, kDayviewSection);
  const QRect stored = placement ? QRect(QPoint(placement->left, placement->top),
                                         QPoint(placement->right - 1, placement->bottom - 1))
                                 : QRect();
  // A place off every screen (a monitor since removed) counts as none.
  const QScreen* screen = placement ? QGuiApplication::screenAt(stored.center()) : nullptr;
  if (screen == nullptr || stored.width() < 200 || stored.height() < 150) {
    const QRect primary = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize fitting = size().boundedTo(primary.size());
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, fitting, primary));
    return;
  }
  const QRect area = screen->availableGeometry();
  setGeometry(ToQRect(FitToArea(ToRectF(stored), ToRectF(area))));
  if (placement->showState == kShowMaximized) setWindowState(Qt::WindowMaximized);
}

void SchMain::SaveWindowPlacement() {
  const QRect normal = isMaximized() || isMinimized() ? normalGeometry() : geometry();
  const int state = isMaximized() ? kShowMaximized : isMinimized() ? kShowMinimized : kShowNormal;
  sched::SaveWindowPlacement(
      s_.settings, kDayviewSection,
      {state, normal.left(), normal.top(), normal.right() + 1, normal.bottom() + 1});
}

bool SchMain::AcceptsDrop(const QMimeData* mime) const {
  return mime != nullptr && mime->hasUrls() && !mime->urls().isEmpty() &&
         mime->urls().front().isLocalFile();
}

void SchMain::dragEnterEvent(QDragEnterEvent* event) {
  if (AcceptsDrop(event->mimeData())) event->acceptProposedAction();
}

void SchMain::dropEvent(QDropEvent* event) {
  if (!AcceptsDrop(event->mimeData())) return;
  event->acceptProposedAction();
  emit FileDropped(event->mimeData()->urls().front().toLocalFile());
}

bool SchMain::eventFilter(QObject* watched, QEvent* event) {
  // Only the shown page follows the tab's size; the hidden one is laid out when it is shown.
  if (event->type() == QEvent::Resize && (watched == monthTab_ || watched == dayTab_) &&
      watched == SSTab1->currentWidget()) {
    LayoutViews();
  }
  // The tabs take dropped files as the window does.
  if (watched == SSTab1) {
    if (event->type() == QEvent::DragEnter) {
      dragEnterEvent(static_cast<QDragEnterEvent*>(event));
      return true;
    }
    if (event->type() == QEvent::Drop) {
      dropEvent(static_cast<QDropEvent*>(event));
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace sched
