#include <QDesktopServices>
#include <QDir>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <cstdio>
#include <map>
#include <sstream>

#include "shell/settings.h"
#include "tests/gui/gui_fixture.h"
#include "tests/gui/widget_trace.h"
#include "tests/support/message_lines.h"
#include "tests/support/row_looks.h"
#include "tests/support/test_store.h"
#include "ui/month_tab.h"
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
struct Program : GuiTest {
  QWidget* dialog = nullptr;  // the dialog the lines run in, when they run in one
  std::size_t seen = 0;
  std::unique_ptr<SchedulerApp> second;
  std::unique_ptr<QSignalSpy> fronted;
  std::unique_ptr<DesktopLinks> links;
  std::vector<int> progress;
  std::int32_t stamp = 0;

  void TestBody() override {}
  QWidget* Window() { return dialog != nullptr ? dialog : app->Window(); }
  // A path of a case: $sample, $install and $dir in place.
  std::string Path(std::string text) const {
    for (const auto& [name, value] : std::map<std::string, std::string>{
             {"$sample", Sample()}, {"$install", install}, {"$dir", dir.Path().string()}}) {
      if (const auto at = text.find(name); at != std::string::npos)
        text.replace(at, name.size(), value);
    }
    return text;
  }
  std::string Shown(std::string text) const {
    for (const auto& [name, value] :
         {std::pair{"$install", install}, {"$dir", dir.Path().string()}}) {
      if (const auto at = text.find(value); at != std::string::npos)
        text.replace(at, value.size(), name);
    }
    return text;
  }
  // Starts with the arguments, on `ports`, and checks that the program runs or ends with EXIT.
  void StartOn(AppPorts ports, const std::string& args, const std::string& exit) {
    app.reset();
    app = std::make_unique<SchedulerApp>(ports);
    QStringList list{"scheduler"};
    if (!args.empty()) list << QString::fromStdString(Path(args));
    const std::optional<int> result = app->Start(list);
    EXPECT_EQ(result ? std::to_string(*result) : "runs", exit);
  }
  int CellOf(int day) const { return app->Views()->Month().FirstCell + day - 1; }
  QWidget* Cell(int day) const { return app->Window()->MonthPage()->Label9(CellOf(day)); }
  QWidget* Lines(int day) const { return app->Window()->MonthPage()->Grid1(CellOf(day)); }
  void End() {
    EXPECT_EQ(testing::NewMessageLines(messages, seen), "") << "messages not looked at";
  }
};

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
      QWidget* outer = std::exchange(p.dialog, dialog);
      trace.RunLines(p, lines, what);
      p.dialog = outer;
    });
  };
  // Starts: ARGS EXIT, EXIT "runs" or the exit status; on a registry without any install
  // folder, or with the folder but without the program's key.
  t.steps["start"] = [](S p, R r) { p.StartOn(p.Ports(), r[1], r[2]); };
  t.steps["start-without"] = [](S p, R r) {
    static FakeRegistry broken;
    broken = FakeRegistry();
    if (r[1] == "key") broken.WriteString(kInstallKey, kInstallDirValue, p.install);
    p.StartOn({broken, p.settings, p.messages, p.dialogs, p.dates, p.clock, p.holidays, p.chooser},
              r[2], r[3]);
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
  t.steps["clock"] = [](S p, R r) {
    const CivilDate d = r.Date(1);
    int h = 0, m = 0, s = 0;
    std::sscanf(r[2].c_str(), "%d:%d:%d", &h, &m, &s);
    p.clock.Set({d.year, d.month, d.day, h, m, s});
  };
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
  t.steps["month"] = [](S p, R r) {
    MonthTab* month = p.app->Window()->MonthPage();
    month->Combo1()->setCurrentIndex(r.Int(1) - 1);
    emit month->Combo1()->activated(r.Int(1) - 1);
  };
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
  t.steps["keep-stamp"] = [](S p, R r) {
    p.stamp = LiveRows(p.app->Document().Tables).at(r.Int(1)).Stamp;
  };
  t.steps["grab"] = [](S p, R r) {
    p.Window()->grab().save(QDir::temp().filePath(QString::fromStdString(r[1])));
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
  t.looks["tabs"] = [](S p, auto&) { return std::to_string(p.app->Window()->Tabs()->count()); };
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
  t.looks["text"] = [](S p, auto& file) {
    const std::vector<std::uint8_t> bytes = ReadBytes(p.Path(file));
    return std::string(bytes.begin(), bytes.end());
  };
  t.looks["links"] = [](S p, auto&) { return p.Shown(p.links->opened.join(" ").toStdString()); };
  t.looks["modal"] = [](S, auto&) { return YesNo(QApplication::activeModalWidget() != nullptr); };
  t.looks["in-use"] = [](S p, auto&) {
    return p.registry.ReadString(kSchedulerKey, kHolidayIniValue).value_or("(none)");
  };
  t.looks["current"] = [](S p, auto&) {
    const ScheduleDocument& d = p.app->Document();
    return std::to_string(d.CurYear * 10000 + d.CurMonth * 100 + d.CurDay);
  };
  // A day's cell of the month grid: its holiday name, its colour, its lines as [one][two].
  const auto cell = [](S p, const std::string& day) -> const MonthCell& {
    return p.app->Views()->Month().Cell(p.CellOf(std::stoi(day)));
  };
  t.looks["cell.holiday"] = [cell](S p, auto& day) { return cell(p, day).holidayName; };
  t.looks["cell.colour"] = [cell](S p, auto& day) -> std::string {
    return cell(p, day).dayColor == DayColor::Red ? "red" : "black";
  };
  t.looks["cell.lines"] = [cell](S p, auto& day) {
    return Join(cell(p, day).lines, "", [](auto& l) { return "[" + l + "]"; });
  };
  t.looks["row.kept-stamp"] = [](S p, auto& i) {
    const std::uint32_t stamp = LiveRows(p.app->Document().Tables).at(std::stoul(i)).Stamp;
    return YesNo(stamp == (static_cast<std::uint32_t>(p.stamp) | 0xC0000000u));
  };
  return t;
}

TEST(Program, FollowsTheTraces) {
  ProgramTrace().Run("gui/program.txt", 5, 150);
}

}  // namespace
}  // namespace sched

#include "program_trace_test.moc"
