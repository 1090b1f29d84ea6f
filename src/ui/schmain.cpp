#include "ui/schmain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QMoveEvent>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "shell/clock_text.h"
#include "shell/document_commands.h"
#include "shell/settings.h"
#include "ui/day_tab.h"
#include "ui/month_tab.h"
#include "ui/sch_dt.h"
#include "ui/toolbar_icons.h"
#include "views/view_texts.h"

namespace sched {

SchMain::SchMain(SchMainServices services) : s_(services) {
  setObjectName("schmain");
  setWindowTitle(kUntitledCaption);
  setAcceptDrops(true);
  BuildMenus();
  BuildToolbar();
  BuildCentre();
  BuildPopups();
  Timer2 = new QTimer(this);
  Timer2->setObjectName("Timer2");
  connect(Timer2, &QTimer::timeout, this, &SchMain::Timer2_Timer);
  resize(1024, 720);
}

QAction* SchMain::AddAction(QMenu* menu, const QString& name, const QString& caption,
                            std::function<void()> run) {
  QAction* action = menu->addAction(caption);
  action->setObjectName(name);
  if (run) {
    connect(action, &QAction::triggered, this, [run] { run(); });
    built_.insert(name);
  } else {
    action->setEnabled(false);  // its command comes with a later part of the program
  }
  actions_.insert(name, action);
  return action;
}

void SchMain::RunCommand(void (DocumentCommands::*command)()) {
  if (commands_ != nullptr) (commands_->*command)();
}

void SchMain::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("FileMenu");
  AddAction(file, "New_Menu", "&New", [this] {
    RunCommand(&DocumentCommands::New);
  })->setShortcut(QKeySequence::New);
  AddAction(file, "OpenF_Menu", "&Open...", [this] {
    RunCommand(&DocumentCommands::OpenOnPc);
  })->setShortcut(QKeySequence::Open);
  AddAction(file, "SaveOvw_Menu", "&Save", [this] {
    RunCommand(&DocumentCommands::SaveToPc);
  })->setShortcut(QKeySequence::Save);
  AddAction(file, "SaveName_Menu", "Save &As...",
            [this] { RunCommand(&DocumentCommands::SaveAsOnPc); });
  file->addSeparator();
  AddAction(file, "q390OpenF_Menu", "Open from &Tarvex...",
            [this] { RunCommand(&DocumentCommands::OpenOnTarvex); });
  AddAction(file, "q390SaveOvw_Menu", "Save to Ta&rvex",
            [this] { RunCommand(&DocumentCommands::SaveToTarvex); });
  AddAction(file, "q390SaveName_Menu", "Save as on Tar&vex...",
            [this] { RunCommand(&DocumentCommands::SaveAsOnTarvex); });
  file->addSeparator();
  AddAction(file, "MenuPrint", "&Print...")->setShortcut(QKeySequence::Print);
  file->addSeparator();
  AddAction(file, "SchEnd_Menu", "E&xit", [this] { close(); });

  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("EditCTL");
  connect(edit, &QMenu::aboutToShow, this, [this] {
    s_.views.EditCTL_Open(false);
    ApplyMenus();
  });
  AddAction(edit, "CopySchdat", "&Copy");
  AddAction(edit, "PasteSchdat", "&Paste");
  edit->addSeparator();
  AddAction(edit, "NewSchdat", "&Add...");
  AddAction(edit, "UpdSchDat", "&Modify...");
  AddAction(edit, "DelSchDat", "&Delete");
  edit->addSeparator();
  QMenu* hctl = edit->addMenu("Setting &Holiday");
  hctl->setObjectName("Hctl");
  AddAction(hctl, "Wdsp", "By &Week...", [this] { ShowWeekHolidayDialog(); });
  AddAction(hctl, "Ydsp", "Selected &Day...", [this] { ShowDayHolidayDialog(); });

  QMenu* del = menuBar()->addMenu("&Delete");
  del->setObjectName("DelCTRL");
  AddAction(del, "DelMonth", "Delete this &Month");
  AddAction(del, "DelYear", "Delete this &Year");
  AddAction(del, "DelBefore", "Delete &Older than selected date");
  AddAction(del, "DelAfter", "Delete &Newer than selected date");

  QMenu* holiday = menuBar()->addMenu("&Holiday");
  holiday->setObjectName("HdayCTL");
  AddAction(holiday, "Set_WeekH", "By &Week...", [this] { ShowWeekHolidayDialog(); });
  AddAction(holiday, "Set_YearH", "Selected &Day...", [this] { ShowDayHolidayDialog(); });
  holiday->addSeparator();
  AddAction(holiday, "SelectHolidayInfo", "&Select Country...",
            [this] { SelectHolidayInfo_Click(); });

  PcLink = menuBar()->addMenu("Data &Link");
  PcLink->setObjectName("PcLink");
  AddAction(PcLink, "PcImport", "&Import...");
  AddAction(PcLink, "PcExport", "&Export...");
  AddAction(PcLink, "PcExpOption", "Im&port exported data");
  ShowLinkMenu(false);

  QMenu* options = menuBar()->addMenu("&Options");
  options->setObjectName("MenuDefine");
  connect(options, &QMenu::aboutToShow, this, &SchMain::MenuDefine_Open);
  QAction* beep = AddAction(options, "BeepAlarm", "&Ring an alarm on PC");
  beep->setCheckable(true);
  beep->setChecked(true);
  QAction* update = AddAction(options, "UpdateAlarm", "&Automatic edit of alarm time",
                              [] {});  // only its check mark flips
  update->setCheckable(true);
  update->setChecked(true);
  update->setVisible(false);
  QAction* message = AddAction(options, "MenuCheckMsg", "Show the &transfer message",
                               [this] { MenuCheckMsg_Click(); });
  message->setCheckable(true);
  options->addSeparator();
  AddAction(options, "Disconnect_Setup", "&Disconnection Setup...",
            [this] { s_.device.Sor_SetupDisconnection(); });

  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("HelpMenu");
  AddAction(help, "HelpTopic", "&Contents")->setShortcut(QKeySequence::HelpContents);
  help->addSeparator();
  AddAction(help, "GlobalVersion", "&About Scheduler...", [this] { ShowAbout(); });
}

void SchMain::BuildToolbar() {
  Toolbar1 = addToolBar("Toolbar");
  Toolbar1->setObjectName("Toolbar1");
  Toolbar1->setMovable(false);
  Toolbar1->setIconSize(QSize(24, 24));
  struct Button {
    const char* key;
    const char* tip;
    void (DocumentCommands::*command)();
  };
  const Button buttons[] = {
      {"NewF", "New schedule", &DocumentCommands::New},
      {"OpenF", "Open a schedule on the PC", &DocumentCommands::OpenOnPc},
      {"Save", "Save to the PC", &DocumentCommands::SaveToPc},
      {nullptr, nullptr, nullptr},
      {"Q390Open", "Open a schedule on the Tarvex", &DocumentCommands::OpenOnTarvex},
      {"Q390Save", "Save to the Tarvex", &DocumentCommands::SaveToTarvex},
      {nullptr, nullptr, nullptr},
      {"SclAdd", "Add a schedule", nullptr},
      {"SclDel", "Delete the selected schedule", nullptr},
      {nullptr, nullptr, nullptr},
      {"Subject", "Edit the word lists", nullptr},
      {"Print", "Print", nullptr},
  };
  for (const Button& b : buttons) {
    if (b.key == nullptr) {
      Toolbar1->addSeparator();
      continue;
    }
    QAction* action = Toolbar1->addAction(ToolbarIcon(b.key), b.tip);
    action->setObjectName(QString("Toolbar1.") + b.key);
    action->setToolTip(b.tip);
    if (b.command != nullptr) {
      const auto command = b.command;
      connect(action, &QAction::triggered, this, [this, command] {
        HideScheduleList();
        RunCommand(command);
      });
      built_.insert(b.key);
    } else {
      action->setEnabled(false);
    }
    buttons_.insert(b.key, action);
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
  connect(SSTab1, &QTabWidget::currentChanged, this, &SchMain::SSTab1_Click);
  layout->addWidget(SSTab1, 1);

  // Beside the tab buttons: the month tab's month and year, and the date label of both tabs.
  auto* corner = new QWidget(SSTab1);
  auto* cornerLayout = new QHBoxLayout(corner);
  cornerLayout->setContentsMargins(0, 0, 6, 0);
  cornerLayout->setSpacing(12);
  monthBar_ = monthTab_->Bar();
  monthBar_->setParent(corner);
  label6_ = new QLabel(corner);
  label6_->setObjectName("Label6(1)");
  label6_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QFont dateFont = label6_->font();
  dateFont.setBold(true);
  label6_->setFont(dateFont);
  cornerLayout->addWidget(monthBar_);
  cornerLayout->addWidget(label6_);
  SSTab1->setCornerWidget(corner, Qt::TopRightCorner);

  auto* bottom = new QHBoxLayout();
  LabelProgress = new QLabel(centre);
  LabelProgress->setObjectName("LabelProgress");
  ProgressBar = new QProgressBar(centre);
  ProgressBar->setObjectName("ProgressBar");
  ProgressBar->setRange(0, 130);  // values above 100 mark the steps after reading or writing
  ProgressBar->setTextVisible(false);
  ProgressBar->setFixedWidth(220);
  LabelProgress->hide();
  ProgressBar->hide();
  bottom->addWidget(LabelProgress);
  bottom->addWidget(ProgressBar);
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
  Timer2->setInterval(Timer2Interval(s_.clock.Now()));
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

void SchMain::EnableSaveButton() {
  buttons_.value("Save")->setEnabled(true);
}

void SchMain::DisableDeleteMonthYear() {
  actions_.value("DelMonth")->setEnabled(false);
  actions_.value("DelYear")->setEnabled(false);
}

void SchMain::HideScheduleList() {
  s_.views.List().Visible = false;
  if (schDT_ != nullptr) schDT_->hide();
}

void SchMain::RefreshViews() {
  s_.views.RefreshViews();
  ShowViews();
}

void SchMain::ShowDate(int year, int month, int day) {
  // The combos and the calendar stand on the date; the fill that follows shows it.
  const CivilDate date{year, month, day};
  s_.views.Combo1Index = month - 1;
  s_.views.Combo2Index = year - kFirstYear;
  s_.views.DateHelper = date;
  if (s_.views.Tab == 1) {
    s_.views.CSCal4_Change(date);
  } else {
    s_.views.Day().CalendarDate = date;
  }
}

void SchMain::ClearDayLists() {
  s_.views.ClearDayLists();
}

void SchMain::UpdateMenus() {
  s_.views.UpdateDeleteMenus();
  ApplyMenus();
}

void SchMain::EnableMonthCommands() {
  ApplyMenus();
}

void SchMain::RedrawShownTab() {
  RefreshViews();
}

void SchMain::DisableSclDel() {
  buttons_.value("SclDel")->setEnabled(false);
}

void SchMain::RefreshScheduleList() {
  if (s_.views.List().Visible) s_.views.ShowScheduleList();
  ShowViews();
}

void SchMain::BringToFront() {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  QApplication::processEvents();
  emit BroughtToFront();
}

void SchMain::SetCaption(const std::string& text) {
  LabelProgress->setText(QString::fromStdString(text));
}

void SchMain::SetValue(int value) {
  ProgressBar->setValue(value);
}

void SchMain::SetVisible(bool visible) {
  LabelProgress->setVisible(visible);
  ProgressBar->setVisible(visible);
}

void SchMain::Refresh() {
  // Paints at once: the work that reports its progress holds the thread.
  LabelProgress->repaint();
  ProgressBar->repaint();
}

void SchMain::SetWaitPointer(bool waiting) {
  if (waiting) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void SchMain::MenuDefine_Open() {
  actions_.value("MenuCheckMsg")
      ->setChecked(s_.settings.GetSetting(kSettingsApp, "Global", "MsgDsp", "0") == "0");
}

void SchMain::MenuCheckMsg_Click() {
  // The action has already flipped its mark.
  const bool checked = actions_.value("MenuCheckMsg")->isChecked();
  s_.settings.SaveSetting(kSettingsApp, "Global", "MsgDsp", checked ? "0" : "1");
}

void SchMain::ShowAbout() {
  QDialog about(this);
  about.setObjectName("GlobalVersion");
  about.setWindowTitle("About Scheduler");
  auto* layout = new QVBoxLayout(&about);
  auto* text = new QLabel(
      "<h3>Scheduler</h3><p>Version " SCHEDULER_VERSION
      "</p>"
      "<p>The PC companion of the Tarvex wrist organiser: its schedule files, on the PC and on "
      "the device.</p>",
      &about);
  text->setWordWrap(true);
  layout->addWidget(text);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &about);
  connect(buttons, &QDialogButtonBox::accepted, &about, &QDialog::accept);
  layout->addWidget(buttons);
  about.exec();
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
}

void SchMain::ShowLinkMenu(bool shown) {
  PcLink->menuAction()->setVisible(shown);
}

void SchMain::ResetToToday() {
  if (commands_ != nullptr) commands_->ResetToToday(true);
}

void SchMain::StoreLastFile() {
  if (doc_ != nullptr) {
    sched::StoreLastFile(s_.settings, kDayviewSection, doc_->ScheduleFile, doc_->ScheduleOnPc);
  }
}

void SchMain::RestoreWindowPlacement() {
  const auto placement = ReadWindowPlacement(s_.settings, kDayviewSection);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect stored = placement ? QRect(QPoint(placement->left, placement->top),
                                         QPoint(placement->right - 1, placement->bottom - 1))
                                 : QRect();
  // A place off every screen (a monitor since removed) counts as none.
  if (!placement || stored.width() < 200 || stored.height() < 150 ||
      QGuiApplication::screenAt(stored.center()) == nullptr) {
    const QSize fitting = size().boundedTo(screen.size());
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, fitting, screen));
    return;
  }
  setGeometry(stored);
  if (placement->showState == 3) setWindowState(Qt::WindowMaximized);
}

void SchMain::SaveWindowPlacement() {
  const QRect normal = isMaximized() || isMinimized() ? normalGeometry() : geometry();
  const int state = isMaximized() ? 3 : isMinimized() ? 2 : 1;
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
  // Both pages of the tab take one size: the month page tells it.
  if (watched == monthTab_ && event->type() == QEvent::Resize) LayoutViews();
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
