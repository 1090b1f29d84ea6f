#include <QDesktopServices>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

#include "shell/settings.h"
#include "tests/gui/views_gui_support.h"
#include "tests/gui/widget_trace.h"
#include "tests/support/date_text.h"
#include "tests/support/message_lines.h"
#include "tests/support/row_looks.h"
#include "tests/support/test_store.h"
#include "ui/month_tab.h"
#include "ui/screen_place.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::Join;
using testing::YesNo;

// Takes the links that the program hands to the desktop, in place of the file manager.
class DesktopLinks : public QObject {
  Q_OBJECT

 public:
  DesktopLinks() { QDesktopServices::setUrlHandler("file", this, "Open"); }
  ~DesktopLinks() override { QDesktopServices::unsetUrlHandler("file"); }
  QStringList opened;

 public slots:
  void Open(const QUrl& url) { opened << url.toLocalFile(); }
};

// The program over fakes with a real installation, as tests/data/gui/program.txt drives it.
// Today is 2026/11/21, 10:30.
struct Program : ViewsGuiTest {
  QWidget* dialog = nullptr;  // the dialog the lines run in, when they run in one
  std::size_t seen = 0;
  std::unique_ptr<SchedulerApp> second;
  std::unique_ptr<QSignalSpy> fronted;
  std::unique_ptr<DesktopLinks> links;
  std::vector<int> progress;
  QSize keptSize;

  void TestBody() override {}
  QWidget* Window() { return dialog != nullptr ? dialog : app->Window(); }
  QListWidget* List() const { return window->ScheduleListDialog()->List1(); }
  // A path of a case with $sample, $install and $dir in place, and a path shown with them.
  std::vector<std::pair<std::string, std::string>> Names() const {
    return {{"$sample", Sample()},
            {"$install", install},
            {"$dir", dir.Path().string()},
            {"$testdata", SCHEDULER_TEST_DATA_DIR}};
  }
  std::string Path(std::string text) const {
    for (const auto& [name, value] : Names()) {
      if (const auto at = text.find(name); at != std::string::npos)
        text.replace(at, name.size(), value);
    }
    return text;
  }
  std::string Shown(std::string text) const {
    for (const auto& [name, value] : Names()) {
      if (const auto at = text.find(value); at != std::string::npos)
        text.replace(at, value.size(), name);
    }
    return text;
  }
  // Starts with the arguments, on `ports`, and checks that the program runs or ends with EXIT.
  void StartOn(AppPorts ports, const std::string& args, const std::string& exit,
               InstallSource source = {}) {
    app.reset();
    app = std::make_unique<SchedulerApp>(ports, std::move(source));
    QStringList list{"scheduler"};
    if (!args.empty()) list << QString::fromStdString(Path(args));
    const std::optional<int> result = app->Start(list);
    EXPECT_EQ(result ? std::to_string(*result) : "runs", exit);
    if ((window = app->Window())) {
      month = window->MonthPage();
      day = window->DayPage();
    }
  }
  QWidget* Cell(int date) const { return month->Label9(CellOf(date)); }
  QWidget* Lines(int date) const { return month->Grid1(CellOf(date)); }
  void End() {
    EXPECT_EQ(testing::NewMessageLines(messages, seen), "") << "messages not looked at";
  }
};

// The selected cell's colour, which the day tab's calendar marks days with items in too.
const QColor kSelectionColour(0xFF, 0xFF, 0xC0);

std::string ColourName(const QColor& colour) {
  return colour == QColor(255, 0, 0) ? "red" : colour == QColor(0, 0, 0) ? "black" : "other";
}

// Lines as "[one][two][]".
std::string Lines(const QStringList& lines) {
  std::string text;
  for (const QString& line : lines) text += "[" + line.toStdString() + "]";
  return text;
}

QStringList Items(const QListWidget* list) {
  QStringList texts;
  for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
  return texts;
}

Qt::Key KeyOf(const std::string& name) {
  const std::map<std::string, Qt::Key> keys = {{"up", Qt::Key_Up},
                                               {"down", Qt::Key_Down},
                                               {"left", Qt::Key_Left},
                                               {"right", Qt::Key_Right},
                                               {"enter", Qt::Key_Return},
                                               {"escape", Qt::Key_Escape},
                                               {"page-down", Qt::Key_PageDown}};
  return keys.at(name);
}

void RightClickLine(QListWidget* list, int row) {
  const QPoint at = list->visualItemRect(list->item(row)).center();
  QTest::mouseClick(list->viewport(), Qt::RightButton, {}, at);
}

// Drops a file on a widget as the window system would.
void DropFile(QWidget* target, const std::string& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  const QPointF at(target->width() / 2.0, target->height() / 2.0);
  QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &drop);
}

// The window of the program that is named so, of those that are not modal.
QWidget* TopLevel(const std::string& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QString::fromStdString(name) && window->isVisible()) return window;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QString::fromStdString(name)) return window;
  }
  ADD_FAILURE() << "no window " << name;
  return nullptr;
}

using S = Program&;
using R = const CaseRow&;

testing::Trace<Program> ProgramTrace() {
  testing::Trace<Program> t;
  AddWidgetWords(t);
  t.otherLook = [property = t.otherLook](S p, const std::string& look) {
    return p.Shown(property(p, look));
  };
  testing::AddRowLooks(t, [](S p) -> const SchDatCTL& { return p.app->Document().Tables; });
  t.nextDialog = [](const testing::Trace<Program>& trace, S p, testing::Trace<Program>::Lines lines,
                    std::string what) {
    QTimer::singleShot(0, [&trace, &p, lines, what] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr) << "no dialog opened";
      // Active, as the user's dialog is: a box commits its text when the focus leaves it.
      dialog->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
      QWidget* outer = std::exchange(p.dialog, dialog);
      trace.RunLines(p, lines, what);
      p.dialog = outer;
    });
  };
  // Starts: ARGS EXIT, EXIT "runs" or the exit status; on a registry without any install
  // folder, or with the folder but without the program's key.
  // The program on the sample schedule, its window at 1280 x 800.
  t.steps["start-sample"] = [](S p, R) { p.StartOnSample(); };
  t.steps["start"] = [](S p, R r) { p.StartOn(p.Ports(), r[1], r[2]); };
  t.steps["start-without"] = [](S p, R r) {
    static FakeRegistry broken;
    broken = FakeRegistry();
    if (r[1] == "key") broken.WriteString(kInstallKey, kInstallDirValue, p.install);
    InstallSource source;
    if (r[1] == "folder+data")
      source = {{p.Path("$dir/gone"), SCHEDULER_DATA_DIR}, p.Path("$dir/fresh")};
    p.StartOn({broken, p.settings, p.messages, p.dialogs, p.dates, p.clock, p.holidays, p.chooser,
               p.clockAlarm, p.beep, p.desktop, p.player, p.processes, p.progressWindow, p.secrets,
               p.help},
              r[2], r[3], source);
  };
  t.steps["second-start"] = [](S p, R r) {
    p.fronted = std::make_unique<QSignalSpy>(p.app->Window(), &SchMain::BroughtToFront);
    p.second = std::make_unique<SchedulerApp>(p.Ports());
    const std::optional<int> result =
        p.second->Start({"scheduler", QString::fromStdString(p.Path(r[1]))});
    EXPECT_EQ(result ? std::to_string(*result) : "runs", r[2]) << r.where;
  };
  t.steps["in-use"] = [](S p, R r) {
    p.registry.WriteString(kSchedulerKey, kHolidayIniValue, r[1]);
  };
  t.steps["last-file"] = [](S p, R r) {
    StoreLastFile(p.settings, kDayviewSection, p.Path(r[1]), 1);
  };
  t.steps["setting"] = [](S p, R r) { p.settings.SaveSetting(kSettingsApp, r[1], r[2], r[3]); };
  t.steps["bytes"] = [](S p, R r) {
    const std::string bytes = testing::Unescaped(r[2]);
    WriteBytes(p.Path(r[1]), {bytes.begin(), bytes.end()});
  };
  t.steps["resize"] = [](S p, R r) {
    p.app->Window()->resize(r.Int(1), r.Int(2));
    QApplication::processEvents();
  };
  t.steps["dialog"] = [](S p, R r) {
    p.dialogs.QueueAnswer(r[1] == "(cancel)" ? std::nullopt : std::optional(p.Path(r[1])));
  };
  t.steps["chooser"] = [](S p, R r) {
    p.chooser.answers.push_back(r[1] == "(cancel)" ? std::nullopt : std::optional(r[1]));
  };
  t.steps["answer"] = [](S p, R r) {
    p.messages.QueueAnswer(r[1] == "yes"  ? MsgAnswer::Yes
                           : r[1] == "no" ? MsgAnswer::No
                                          : MsgAnswer::Cancel);
  };
  t.steps["trigger"] = [](S p, R r) {
    p.app->Window()->Action(QString::fromStdString(r[1]))->trigger();
  };
  t.steps["tool"] = [](S p, R r) {
    p.app->Window()->ToolButton(QString::fromStdString(r[1]))->trigger();
  };
  t.steps["menu-opens"] = [](S p, R r) {
    emit p.app->Window()->findChild<QMenu*>(QString::fromStdString(r[1]))->aboutToShow();
  };
  t.steps["drop"] = [](S p, R r) {
    QWidget* target = p.app->Window();
    if (r[1] == "tabs") target = p.app->Window()->Tabs();
    DropFile(target, p.Path(r[2]));
  };
  t.steps["dirty"] = [](S p, R) { p.app->Document().Dirty = true; };
  t.steps["close"] = [](S p, R r) { EXPECT_EQ(p.app->Window()->close(), r.YesNo(1)) << r.where; };
  t.steps["place"] = [](S p, R r) {
    p.app->Window()->setGeometry(r.Int(1), r.Int(2), r.Int(3), r.Int(4));
  };
  t.steps["watch-progress"] = [](S p, R) {
    QObject::connect(p.app->Window()->Progress(), &QProgressBar::valueChanged,
                     [&p](int value) { p.progress.push_back(value); });
  };
  t.steps["watch-links"] = [](S p, R) { p.links = std::make_unique<DesktopLinks>(); };
  t.steps["month"] = [](S p, R r) { p.ChooseMonth(r.Int(1)); };
  t.steps["select-day"] = [](S p, R r) { p.app->Views()->SelectCell(p.CellOf(r.Int(1)), -1); };
  // A click and a double click on a day's cell, or on the first line of its list.
  t.steps["double-day"] = [](S p, R r) {
    QTest::mouseClick(p.Cell(r.Int(1)), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseDClick(p.Cell(r.Int(1)), Qt::LeftButton, {}, QPoint(5, 5));
  };
  t.steps["double-line"] = [](S p, R r) {
    QTest::mouseClick(p.Lines(r.Int(1)), Qt::LeftButton, {}, QPoint(10, 5));
    QTest::mouseDClick(p.Lines(r.Int(1)), Qt::LeftButton, {}, QPoint(10, 5));
  };
  t.steps["keep-size"] = [](S p, R) { p.keptSize = p.Window()->size(); };
  t.steps["grab"] = [](S p, R r) {
    p.Window()->grab().save(PicturePath(p.dir, QString::fromStdString(r[1])));
  };

  // The program and its window.
  t.looks["window"] = [](S p, auto&) { return YesNo(p.app->Window() != nullptr); };
  t.looks["title"] = [](S p, auto&) { return p.app->Window()->windowTitle().toStdString(); };
  t.looks["file"] = [](S p, auto&) { return p.Shown(p.app->Document().ScheduleFile); };
  t.looks["dirty"] = [](S p, auto&) { return YesNo(p.app->Document().Dirty); };
  t.looks["record-count"] = [](S p, auto&) {
    return std::to_string(p.app->Document().Tables.RowCount);
  };
  t.looks["holidays-ready"] = [](S p, auto&) {
    return std::to_string(p.app->State().Holidays.HolidayReady);
  };
  t.looks["messages"] = [](S p, auto&) { return testing::NewMessageLines(p.messages, p.seen); };
  t.looks["fronted"] = [](S p, auto&) { return YesNo(p.fronted->wait(2000)); };
  t.looks["second-window"] = [](S p, auto&) { return YesNo(p.second->Window() != nullptr); };
  t.looks["geometry"] = [](S p, auto&) {
    const QRect g = p.app->Window()->geometry();
    return Join(std::vector<int>{g.x(), g.y(), g.width(), g.height()}, " ",
                [](int v) { return std::to_string(v); });
  };
  t.looks["today-on-screen"] = [](S p, auto&) {
    const QWidget* today = p.app->Window()->TodayButton();
    const QRect shown(today->mapToGlobal(QPoint(0, 0)), today->size());
    return YesNo(today->screen()->availableGeometry().contains(shown));
  };
  t.looks["minimized"] = [](S p, auto&) { return YesNo(p.app->Window()->isMinimized()); };
  t.looks["setting"] = [](S p, auto& key) {
    return p.settings.GetSetting(kSettingsApp, key.substr(0, key.find(',')),
                                 key.substr(key.find(',') + 1), "(none)");
  };
  t.looks["date-frame"] = [](S p, auto&) {
    return p.app->Window()->DateLabel()->text().toStdString();
  };
  t.looks["day-timer"] = [](S p, auto&) {
    QTimer* timer = p.app->Window()->DayTimer();
    return timer->isActive() ? std::to_string(timer->interval()) : std::string("off");
  };
  // The menu entries and tool buttons named, as "name:on" or "name:off".
  t.looks["actions"] = [](S p, auto& names) {
    std::istringstream list(names);
    std::vector<std::string> states;
    for (std::string name; std::getline(list, name, ',');) {
      QAction* action = p.app->Window()->Action(QString::fromStdString(name));
      states.push_back(action == nullptr ? "(none)" : action->isEnabled() ? "on" : "off");
    }
    return Join(states, " ");
  };
  // The lines the month grid's cell N lists, apart by " | ".
  t.looks["cell"] = [](S p, auto& cell) {
    std::vector<std::string> lines = p.app->Views()->Month().Cell(std::stoi(cell)).lines;
    if (!lines.empty()) lines.pop_back();  // the blank last line
    return Join(lines, " | ");
  };
  // The texts and the keys of the menu entries named, each entry's apart by " | ".
  t.looks["action-texts"] = [](S p, auto& names) {
    std::istringstream list(names);
    std::vector<std::string> texts;
    for (std::string name; std::getline(list, name, ',');) {
      const QAction* action = p.app->Window()->Action(QString::fromStdString(name));
      const QStringList keys = QKeySequence::listToString(action->shortcuts()).split("; ");
      texts.push_back(action->text().toStdString() + " [" + keys.join(", ").toStdString() + "]");
    }
    return Join(texts, " | ");
  };
  t.looks["tools"] = [](S p, auto& keys) {
    std::istringstream list(keys);
    std::vector<std::string> states;
    for (std::string key; std::getline(list, key, ',');) {
      QAction* tool = p.app->Window()->ToolButton(QString::fromStdString(key));
      states.push_back(std::string(tool->isEnabled() ? "on" : "off") +
                       (tool->toolTip().isEmpty() ? "" : "+tip"));
    }
    return Join(states, " ");
  };
  t.looks["checked"] = [](S p, auto& name) {
    return YesNo(p.app->Window()->Action(QString::fromStdString(name))->isChecked());
  };
  t.looks["progress"] = [](S p, auto&) {
    const SchMain* w = p.app->Window();
    return std::to_string(w->Progress()->maximum()) +
           (w->Progress()->isVisible() ? " shown" : " hidden") + " '" +
           w->ProgressCaption()->text().toStdString() + "'";
  };
  t.looks["progress-seen"] = [](S p, auto& value) {
    return YesNo(std::find(p.progress.begin(), p.progress.end(), std::stoi(value)) !=
                 p.progress.end());
  };
  t.looks["dialog-folder"] = [](S p, auto&) {
    return p.Shown(p.dialogs.ShownDialogs().back().request.folder);
  };
  // What the device's file dialog was asked last: the count, the mode, the name proposed, the
  // files listed.
  t.looks["chooser"] = [](S p, auto&) {
    if (p.chooser.asked.empty()) return std::string("0");
    const DeviceFileRequest& last = p.chooser.asked.back();
    return std::to_string(p.chooser.asked.size()) +
           (last.mode == DeviceDialogMode::Save ? " save '" : " open '") + last.proposal + "' " +
           Join(last.files, ", ");
  };
  t.looks["same"] = [](S p, auto& files) {
    return YesNo(ReadBytes(p.Path(files.substr(0, files.find(',')))) ==
                 ReadBytes(p.Path(files.substr(files.find(',') + 1))));
  };
  t.looks["events"] = [](S p, auto& file) {
    const std::vector<std::uint8_t> bytes = ReadBytes(p.Path(file));
    const std::string text(bytes.begin(), bytes.end());
    std::size_t count = 0;
    for (std::size_t at = text.find("BEGIN:VEVENT"); at != std::string::npos;
         at = text.find("BEGIN:VEVENT", at + 1)) {
      ++count;
    }
    return std::to_string(count);
  };
  t.looks["text"] = [](S p, auto& file) {
    const std::vector<std::uint8_t> bytes = ReadBytes(p.Path(file));
    return std::string(bytes.begin(), bytes.end());
  };
  t.looks["links"] = [](S p, auto&) { return p.Shown(p.links->opened.join(" ").toStdString()); };
  // The programs started, a line each.
  t.looks["started"] = [](S p, auto&) {
    std::string lines;
    for (const std::string& line : p.processes.started) {
      lines += (lines.empty() ? "" : " | ") + p.Shown(line);
    }
    return lines;
  };
  // The sounds played, and whether their files are gone after.
  t.looks["played"] = [](S p, auto&) {
    const bool gone =
        std::none_of(p.player.played.begin(), p.player.played.end(),
                     [](const std::string& file) { return std::filesystem::exists(file); });
    return std::to_string(p.player.played.size()) + (gone ? " gone" : " left");
  };
  t.looks["modal"] = [](S, auto&) { return YesNo(QApplication::activeModalWidget() != nullptr); };
  t.looks["in-use"] = [](S p, auto&) {
    return p.registry.ReadString(kSchedulerKey, kHolidayIniValue).value_or("(none)");
  };
  // The dialog the lines run in: whether it kept the size it had at keep-size, its focus.
  t.looks["size-kept"] = [](S p, auto&) { return YesNo(p.Window()->size() == p.keptSize); };
  t.looks["focus"] = [](S p, auto&) {
    return p.Window()->focusWidget()->objectName().toStdString();
  };
  // The manual's pages: F1 in a window that is not modal, an alarm that rings, what was asked.
  t.steps["help-key"] = [](S, R r) {
    QWidget* window = TopLevel(r[1]);
    QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, Qt::Key_F1);
  };
  t.steps["help-fails"] = [](S p, R) { p.help.showable = false; };
  t.steps["ring"] = [](S p, R r) {
    p.clock.Set({2026, 11, 21, std::stoi(r[1]), std::stoi(r[1].substr(r[1].find(':') + 1)), 0});
    p.clockAlarm.Ring();
    QApplication::processEvents();
  };
  t.steps["grab-window"] = [](S p, R r) {
    TopLevel(r[1])->grab().save(PicturePath(p.dir, QString::fromStdString(r[2])));
  };
  t.looks["help"] = [](S p, auto&) {
    const std::string pages = Join(p.help.shown, " | ");
    p.help.shown.clear();
    return pages;
  };
  t.looks["shown"] = [](S, auto& name) {
    const QWidget* window = TopLevel(name);
    return YesNo(window != nullptr && window->isVisible());
  };
  const auto n = [](int value) { return std::to_string(value); };
  // The month tab.
  t.steps["click-cell"] = [](S w, R r) { w.ClickCell(r.Int(1)); };
  t.steps["right-click-cell"] = [](S w, R r) {
    QTest::mouseClick(w.month->Label9(r.Int(1)), Qt::RightButton, {}, QPoint(5, 5));
  };
  t.steps["grid-key"] = [](S w, R r) { QTest::keyClick(w.month->Text1(), KeyOf(r[1])); };
  t.steps["year"] = [](S w, R r) { w.ChooseYear(r.Int(1)); };
  t.steps["arrow"] = [](S w, R r) { w.month->Command1(r.Int(1))->click(); };
  t.steps["today"] = [](S w, R) { w.window->TodayButton()->click(); };
  t.steps["comdt"] = [](S w, R) { w.month->ComDt()->click(); };
  t.steps["list-key"] = [](S w, R r) { QTest::keyClick(w.List(), KeyOf(r[1])); };
  // Right clicks on a line of a cell's list, of the schedule list or of the day list.
  t.steps["line-right"] = [](S w, R r) {
    CellList* list = w.month->Grid1(r.Int(1));
    QTest::mouseClick(list, Qt::RightButton, {}, QPoint(10, list->RowHeight() * r.Int(2) + 2));
  };
  t.steps["list-right"] = [](S w, R r) { RightClickLine(w.List(), r.Int(1)); };
  t.steps["hide-popup"] = [](S w, R r) { w.window->Popup(QString::fromStdString(r[1]))->hide(); };
  // The day tab; its arrows clicked TIMES times.
  t.steps["tab"] = [](S w, R r) { w.ShowTab(r.Int(1)); };
  t.steps["day-row"] = [](S w, R r) { w.day->List1()->setCurrentRow(r.Int(1)); };
  t.steps["tick"] = [](S w, R) { QMetaObject::invokeMethod(w.day->Timer1(), "timeout"); };
  t.steps["calendar-click"] = [](S w, R r) {
    DayCalendar* calendar = w.day->CSCal4();
    const QRect date = calendar->DateRect(r.Date(1));
    ASSERT_FALSE(date.isEmpty()) << r.where;
    QTest::mouseClick(calendar, Qt::LeftButton, {}, date.center());
  };
  t.steps["calendar-key"] = [](S w, R r) { QTest::keyClick(w.day->CSCal4(), KeyOf(r[1])); };
  t.steps["calendar-right"] = [](S w, R) {
    QTest::mouseClick(w.day->CSCal4(), Qt::RightButton, {}, QPoint(10, 10));
  };
  t.steps["day-right"] = [](S w, R r) { RightClickLine(w.day->List1(), r.Int(1)); };
  const auto arrows = [](QToolButton* (DayTab::*button)(int) const) {
    return [button](S w, R r) {
      for (int i = 0; i < (r[2].empty() ? 1 : r.Int(2)); ++i) (w.day->*button)(r.Int(1))->click();
    };
  };
  t.steps["month-arrow"] = arrows(&DayTab::ComMM);
  t.steps["year-arrow"] = arrows(&DayTab::ComYY);

  // The window.
  t.looks["current"] = [](S w, auto&) { return DateText(w.Current()); };
  t.looks["label"] = [](S w, auto&) { return w.DateLabel(); };
  t.looks["months"] = [](S w, auto&) {
    return (w.month->Combo1()->currentText() + " " + w.month->Combo2()->currentText())
        .toStdString();
  };
  t.looks["heads"] = [](S w, auto&) {
    std::string heads;
    for (int i = 0; i < 7; ++i) {
      heads +=
          (i ? " " : "") + ColourName(w.month->Label8(i)->palette().color(QPalette::WindowText));
    }
    return heads;
  };
  t.looks["number"] = [](S w, auto& c) {
    return w.month->Label1(std::stoi(c))->Text().toStdString();
  };
  t.looks["number-colour"] = [](S w, auto& c) {
    return ColourName(w.month->Label1(std::stoi(c))->Color());
  };
  t.looks["name"] = [](S w, auto& c) {
    return w.month->Label2(std::stoi(c))->Text().toStdString();
  };
  t.looks["name-colour"] = [](S w, auto& c) {
    return ColourName(w.month->Label2(std::stoi(c))->Color());
  };
  t.looks["back"] = [](S w, auto& c) -> std::string {
    const QColor back = w.month->Label9(std::stoi(c))->Back();
    if (back == kSelectionColour) return "selection";
    if (back == QColor(0xE0, 0xE0, 0xE0)) return "grey";
    return back == w.month->palette().color(QPalette::Base) ? "window" : "other";
  };
  t.looks["enabled"] = [](S w, auto& c) {
    return YesNo(w.month->Label9(std::stoi(c))->isEnabled());
  };
  t.looks["lines"] = [](S w, auto& c) {
    const std::vector<QString>& lines = w.month->Grid1(std::stoi(c))->Lines();
    return Lines(QStringList(lines.begin(), lines.end()));
  };
  // The selected cell and its day number.
  t.looks["selected"] = [n](S w, auto&) {
    const int cell = w.Views().Month().SelectedCell;
    return n(cell) + " " + w.month->Label1(cell)->Text().toStdString();
  };
  t.looks["comdt"] = [](S w, auto&) { return YesNo(w.month->ComDt()->isVisible()); };
  t.looks["scrolls"] = [](S w, auto& c) { return YesNo(w.month->Grid1(std::stoi(c))->Scrolls()); };
  // Whether ComDt leaves the selected cell's scroll bar free.
  t.looks["comdt-clear"] = [](S w, auto&) {
    const CellList* list = w.month->Grid1(w.Views().Month().SelectedCell);
    const QRect track = list->ScrollTrack().translated(list->pos());
    return YesNo(!track.intersects(w.month->ComDt()->geometry()));
  };
  t.looks["comdt-in-cell"] = [](S w, auto& c) {
    return YesNo(w.month->Label9(std::stoi(c))->geometry().contains(w.month->ComDt()->geometry()));
  };
  t.looks["enabled-action"] = [](S w, auto& name) {
    return YesNo(w.window->Action(QString::fromStdString(name))->isEnabled());
  };
  // A popup, when shown: the object names of its entries, separators left out.
  t.looks["popup"] = [](S w, auto& name) -> std::string {
    QMenu* popup = w.window->Popup(QString::fromStdString(name));
    if (popup == nullptr || !popup->isVisible()) return "(hidden)";
    QStringList names;
    for (QAction* action : popup->actions()) {
      if (!action->isSeparator()) names << action->objectName();
    }
    return names.join(",").toStdString();
  };
  // The schedule list dialog: shown, its title and lines; where it stands by the cell: below
  // it, above it, or on the screen's bottom edge, and always wholly on the screen.
  t.looks["list"] = [](S w, auto&) -> std::string {
    SchDT* list = w.window->ScheduleListDialog();
    if (!list->isVisible()) return "(hidden)";
    return list->windowTitle().toStdString() + " " + Lines(Items(list->List1()));
  };
  // Where the window the lines run in stands on its screen's free area: centred, on the
  // screen, or off it.
  t.looks["place"] = [](S p, auto&) -> std::string {
    const QRect window = p.Window()->frameGeometry();
    const QRect area = AvailableArea(p.Window());
    if (!area.contains(window)) return "off the screen";
    return (window.center() - area.center()).manhattanLength() <= 1 ? "centred" : "on the screen";
  };
  t.looks["list-on-screen"] = [](S w, auto&) {
    return YesNo(AvailableArea(w.window).contains(w.window->ScheduleListDialog()->frameGeometry()));
  };
  t.looks["list-place"] = [](S w, auto& c) -> std::string {
    const QRect list = w.window->ScheduleListDialog()->frameGeometry();
    const CellPlate* plate = w.month->Label9(std::stoi(c));
    const QRect cell(plate->mapToGlobal(QPoint(0, 0)), plate->size());
    const QRect area = AvailableArea(w.window);
    if (!area.contains(list)) return "off the screen";
    if (list.left() != cell.left()) return "beside the cell";
    // The plates stand on whole pixels, the layout's cells may end within one.
    if (std::abs(list.top() - cell.bottom() - 1) <= 1) return "below";
    if (list.bottom() <= cell.top()) return "above";
    return list.bottom() == area.bottom() ? "on the screen's bottom" : "elsewhere";
  };

  // The day tab.
  t.looks["month-bar"] = [](S w, auto&) { return YesNo(w.month->Bar()->isVisible()); };
  t.looks["day.lines"] = [](S w, auto&) { return Lines(Items(w.day->List1())); };
  t.looks["day.row"] = [n](S w, auto&) { return n(w.day->List1()->currentRow()); };
  t.looks["day.rows"] = [n](S w, auto&) { return n(w.day->List2()->count()); };
  t.looks["day.hour"] = [](S w, auto& h) {
    return w.day->Label3(std::stoi(h))->text().toStdString();
  };
  t.looks["day.timer"] = [n](S w, auto&) {
    return w.day->Timer1()->isActive() ? n(w.day->Timer1()->interval()) : std::string("off");
  };
  // The paint of the bar at a minute; the bar fills its picture from 0:00 to 24:00.
  t.looks["day.bar"] = [](S w, auto& minute) -> std::string {
    const TimeBar& bar = w.Views().Day().Pict;
    EXPECT_EQ(bar.ScaleWidth(), w.day->Pict()->width());
    return bar.At(bar.ColumnOf(std::stoi(minute))) == TimeBar::Paint::Span ? "span" : "ground";
  };
  // Whether the calendar marks the date as a day with items: half its place or more in the
  // mark's colour.
  t.looks["day.marked"] = [](S w, auto& date) {
    DayCalendar* calendar = w.day->CSCal4();
    const QImage place =
        calendar->grab(calendar->DateRect(testing::CaseRow{{date}, ""}.Date(0))).toImage();
    int marked = 0;
    for (int y = 0; y < place.height(); ++y) {
      for (int x = 0; x < place.width(); ++x) marked += place.pixelColor(x, y) == kSelectionColour;
    }
    return YesNo(2 * marked >= place.width() * place.height());
  };
  return t;
}

TEST(Program, FollowsTheTraces) {
  const testing::Trace<Program> trace = ProgramTrace();
  trace.Run("gui/program.txt", 5, 150);
  trace.Run("gui/tabs.txt", 5, 150);
}

// The manual's page of every window; scripts/make-manual-pictures keeps its pictures.
TEST(Program, OpensTheManualPageOfEachWindow) {
  ProgramTrace().Run("gui/help.txt", 5, 60);
}

// Runs again at twice the scale on a small screen (see CMakeLists.txt).
TEST(Program, KeepsItsWindowsOnTheScreen) {
  ProgramTrace().Run("gui/on-screen.txt", 5, 20);
}

}  // namespace
}  // namespace sched

#include "program_trace_test.moc"
