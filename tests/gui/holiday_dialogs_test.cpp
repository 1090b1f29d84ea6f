#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <memory>

#include "platform/fake/fake_date_formatter.h"
#include "tests/gui/picture_path.h"
#include "tests/gui/widget_trace.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_store.h"
#include "ui/dlg_select_holiday.h"
#include "ui/sch_week_h.h"
#include "ui/sch_year_h.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// The three holiday dialogs as tests/data/gui/holiday-windows.txt drives them.
struct Holidays : CountryFolder {
  ScheduleDocument week;
  SchWeekHModel weekModel{week, messages, host};
  TestStore days;
  FakeHolidayCalendar founders{{{20261120, "Founders' Day"}}};
  NamedHolidays foundersNamed{&founders, 1, -1};
  FakeDateFormatter dates;
  SchYearHModel dayModel{days.store, foundersNamed, dates, host};
  FakeRegistry emptyRegistry;
  std::unique_ptr<DlgSelectHolidayModel> selectModel;
  std::unique_ptr<QDialog> dialog;
  std::size_t seen = 0;
  TempDir pictures;

  Holidays() : CountryFolder({"holidayJP.ini", "holidayUS.ini", "holidayFR.ini"}, "holidayUS.ini") {
    week.SetShownDate({2026, 11, 21});
    days.doc.SetShownDate({2026, 11, 20});
    week.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  }
  QWidget* Window() { return dialog.get(); }
  std::int32_t NovemberOn() const {
    return days.doc.Tables.AncYY.At(FindYearRow(days.doc.Tables, 2026)).HolidayOn[10];
  }
};

// A caption's colours: its text (red or plain) and its back (green or white).
std::string Colours(const QWidget* caption, const QWidget* dialog) {
  const QColor text = caption->palette().color(QPalette::WindowText);
  const QColor back = caption->palette().color(QPalette::Window);
  return std::string(text == QColor(Qt::red)                                 ? "red"
                     : text == dialog->palette().color(QPalette::ButtonText) ? "plain"
                                                                             : "other") +
         (back == QColor(0, 128, 0)   ? " green"
          : back == QColor(Qt::white) ? " white"
                                      : " other");
}

// The texts of a list's entries, joined by " | ".
std::string Texts(const QList<QListWidgetItem*>& items) {
  QStringList texts;
  for (const QListWidgetItem* item : items) texts << item->text();
  return texts.join(" | ").toStdString();
}

using S = Holidays&;
using R = const CaseRow&;

testing::Trace<Holidays> HolidayWindowsTrace() {
  testing::Trace<Holidays> t;
  AddWidgetWords(t);
  testing::AddMessageWords(t);
  // week, day, country, or the country dialog of an installation without its key.
  t.steps["open"] = [](S h, R r) {
    if (r[1] == "week") h.dialog = std::make_unique<SchWeekH>(h.weekModel);
    if (r[1] == "day") h.dialog = std::make_unique<SchYearH>(h.dayModel);
    if (r[1] == "country" || r[1] == "broken-country") {
      h.selectModel = std::make_unique<DlgSelectHolidayModel>(
          r[1] == "country" ? h.Services()
                            : DlgSelectHolidayServices{h.emptyRegistry, h.messages, h.device,
                                                       h.calendar, h.host, h.pcapps},
          h.named);
      h.dialog = std::make_unique<DlgSelectHoliday>(*h.selectModel);
    }
    if (r[2] != "not-shown") h.dialog->open();
  };
  t.steps["close"] = [](S h, R) { h.dialog->close(); };
  t.steps["exec"] = [](S h, R r) {
    EXPECT_EQ(h.dialog->exec() == QDialog::Accepted, r.YesNo(1)) << r.where;
  };
  t.steps["in-use"] = [](S h, R r) {
    h.registry.WriteString(kSchedulerKey, kHolidayIniValue, r[1]);
  };
  // A click on the entry of a list with the text.
  t.steps["click-entry"] = [](S h, R r) {
    auto* list = qobject_cast<QListWidget*>(Named(h.Window(), r[1]));
    const auto found = list->findItems(QString::fromStdString(r[2]), Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << r.where;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found[0]).center());
  };
  t.steps["grab"] = [](S h, R r) {
    h.dialog->grab().save(PicturePath(h.pictures, QString::fromStdString(r[1])));
  };

  t.looks["result"] = [](S h, auto&) -> std::string {
    return h.dialog->result() == QDialog::Accepted ? "accepted" : "rejected";
  };
  t.looks["buttons"] = [](S h, auto&) {
    QStringList texts;
    for (QPushButton* b : h.dialog->findChildren<QPushButton*>()) texts << b->text();
    return texts.join(" | ").toStdString();
  };
  t.looks["colours"] = [](S h, auto& name) { return Colours(Named(h.Window(), name), h.Window()); };
  const auto list = [](S h, const std::string& name) {
    return qobject_cast<QListWidget*>(Named(h.Window(), name));
  };
  t.looks["entries"] = [list](S h, auto& name) {
    return Texts(list(h, name)->findItems("*", Qt::MatchWildcard));
  };
  t.looks["selected"] = [list](S h, auto& name) { return Texts(list(h, name)->selectedItems()); };
  t.looks["loaded"] = [](S h, auto&) {
    return YesNo(static_cast<DlgSelectHoliday*>(h.dialog.get())->Loaded());
  };
  t.looks["week"] = [](S h, auto&) {
    std::string flags;
    for (std::int16_t flag : h.week.WeekHoliday) flags += std::to_string(flag);
    return flags;
  };
  // The holiday mask of November 2026 in the year's row, and as the month view shows it.
  t.looks["november"] = [](S h, auto&) {
    return std::to_string(h.NovemberOn()) + " shown " +
           std::to_string(h.days.doc.ShownYearMasks.HolidayOn[10]);
  };
  t.looks["calls"] = [](S h, auto&) { return h.host.NewCalls(); };
  t.looks["in-use"] = [](S h, auto&) {
    return h.registry.ReadString(kSchedulerKey, kHolidayIniValue).value_or("(none)");
  };
  return t;
}

TEST(HolidayDialogs, FollowTheTraces) {
  HolidayWindowsTrace().Run("gui/holiday-windows.txt", 3, 80);
}

}  // namespace
}  // namespace sched
