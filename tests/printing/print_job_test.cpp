#include "printing/print_job.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_print_device.h"
#include "platform/std/console.h"
#include "printing/page_layout.h"
#include "printing/print_command.h"
#include "store/day_items.h"
#include "store/schedule_store.h"
#include "tests/support/date_text.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;

// The window of a job, which the user cancels when some records are printed.
class FakePrintingWindow : public PrintingWindow {
 public:
  int cancelAfter = -1;
  bool shown = false;
  void Show(std::function<void()> cancel) override {
    shown = true;
    cancel_ = std::move(cancel);
  }
  void DoEvents(int done, int) override {
    if (done == cancelAfter) cancel_();
  }
  void Close() override { shown = false; }

 private:
  std::function<void()> cancel_;
};

// The main window as the print commands see it: its dialogs answer as the steps told them.
struct Job : PrintHost {
  ScheduleDocument doc;
  NoAlarmHooks alarms;
  SilentProgress progress;
  FakeClock clock{{2026, 11, 25, 16, 9, 0}};
  ScheduleStore store{doc, {alarms, progress, clock}};
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  std::unique_ptr<FakePrintDevice> device = std::make_unique<FakePrintDevice>(12700, 4000);
  FakePrintingWindow window;
  std::vector<CivilDate> range;  // typed into the range dialog; none cancels it
  std::optional<int> copies;     // chosen in the print dialog; none cancels it
  std::string opened;            // the range dialog's dates when it opened
  int refreshed = 0;
  int previews = 0;
  std::int32_t stamps = 0;

  // OK with the dates typed; Cancel when OK refuses them.
  void ShowSelectPrintDate(SelectPrintDateModel& model) override {
    opened = DateText(model.Start()) + " " + DateText(model.End());
    if (!range.empty()) {
      model.ImDate1_Change(range[0]);
      model.ImDate2_Change(range[1]);
      if (model.SchEditOK_Click()) return;
    }
    model.SchEditCAN_Click();
  }
  std::optional<int> ShowPrintDialog() override { return copies; }
  PrintDevice& Printer() override { return *device; }
  void ShowPrintPreview(const std::function<void(PrintDevice&)>& paint) override {
    ++previews;
    paint(*device);
  }
  PrintingWindow& DlgPrinting() override { return window; }
  void RefreshViews() override { ++refreshed; }

  void End() const { EXPECT_FALSE(window.shown) << "DlgPrinting left open"; }

  const PrintedPage& Page(const std::string& number) const {
    static const PrintedPage kNone;
    const std::size_t index = std::stoul(number) - 1;
    if (index < device->Pages().size()) return device->Pages()[index];
    ADD_FAILURE() << "no page " << number;
    return kNone;
  }
};

// The text with each run of "0123456789..." written as "<N digits>".
std::string CollapsedDigits(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t run = 0;
    while (i + run < text.size() && text[i + run] == '0' + static_cast<char>(run % 10)) ++run;
    if (run < 10) {
      out += text[i++];
      continue;
    }
    out += "<" + std::to_string(run) + " digits>";
    i += run;
  }
  return out;
}

int Minutes(const std::string& hhmm) {
  return std::stoi(hhmm.substr(0, 2)) * 60 + std::stoi(hhmm.substr(3, 2));
}

using S = Job&;
using R = const CaseRow&;

testing::Trace<Job> JobTrace() {
  testing::Trace<Job> t;
  testing::AddMessageWords(t);
  t.steps["page"] = [](S j, R row) {
    j.device = std::make_unique<FakePrintDevice>(row.Int(1), row.Int(2));
  };
  t.steps["file"] = [](S j, R row) { j.doc.ScheduleFile = row[1]; };
  t.steps["shown"] = [](S j, R row) { j.doc.SetShownDate(row.Date(1)); };
  t.steps["add"] = [](S j, R row) {
    SchRecord r;
    SetStartDate(r, row.Date(1));
    SetEndDate(r, row.Date(1));
    if (row[2] != "allday") {
      r.StartTime = static_cast<std::int16_t>(Minutes(row[2].substr(0, 5)));
      r.EndTime = static_cast<std::int16_t>(Minutes(row[2].substr(6, 5)));
    }
    r.Title = row[3];
    r.Place = row[4];
    r.Memo = testing::Unescaped(row[5]);
    if (r.Memo.ends_with(" digits")) {
      const int length = std::stoi(r.Memo);
      r.Memo.clear();
      for (int i = 0; i < length; ++i) r.Memo += static_cast<char>('0' + i % 10);
    }
    r.Stamp = ++j.stamps;
    j.store.InsertRecord(r);
  };
  t.steps["delete"] = [](S j, R row) {
    j.store.RemoveRow(ItemOfDay(j.doc.Tables, row.Date(1), row.Int(2)));
  };
  t.steps["cancel-after"] = [](S j, R row) { j.window.cancelAfter = row.Int(1); };
  t.steps["fail-write"] = [](S j, R) { j.device->FailEnd(); };
  const auto dialogs = [](S j, R row) {
    if (row[1] != "-") j.range = {row.Date(1), row.Date(2)};
    if (!row[3].empty() && row[3] != "-") j.copies = row.Int(3);
  };
  t.steps["print"] = [dialogs](S j, R row) {
    dialogs(j, row);
    MenuPrint_Click(j.doc, j, {j.messages, j.dates, j.clock});
  };
  t.steps["preview"] = [dialogs](S j, R row) {
    dialogs(j, row);
    MenuPrintPreview_Click(j.doc, j, {j.messages, j.dates, j.clock});
  };

  const auto number = [](int n) { return std::to_string(n); };
  t.looks["font"] = [number](S j, auto&) { return number(j.device->FontSize()); };
  t.looks["refreshed"] = [number](S j, auto&) { return number(j.refreshed); };
  t.looks["previews"] = [number](S j, auto&) { return number(j.previews); };
  t.looks["opened"] = [](S j, auto&) { return j.opened; };
  t.looks["doc"] = [](S j, auto&) { return j.device->Ending(); };
  t.looks["pages"] = [number](S j, auto&) { return std::to_string(j.device->Pages().size()); };
  t.looks["columns"] = [number](S j, auto&) {
    const PrintColumns c = MeasureColumns(*j.device);
    return testing::Join(std::vector<int>{c.Left, c.Date, c.Time, c.Text, c.Label, c.Body, c.Right},
                         " ", number);
  };
  // The texts of a page that stand at an x (the header's at the top); "header:PAGE",
  // "dates:PAGE", "times:PAGE", "labels:PAGE", "bodies:PAGE".
  const auto textsAt = [](S j, const std::string& page, auto at) {
    std::vector<std::string> texts;
    const PrintColumns c = MeasureColumns(*j.device);
    for (const PrintedText& p : j.Page(page).texts) {
      if (at(c, p)) texts.push_back(p.text);
    }
    return testing::Join(texts);
  };
  t.looks["header"] = [textsAt](S j, auto& page) {
    return textsAt(j, page, [](const PrintColumns&, const PrintedText& p) { return p.y == 0; });
  };
  for (const std::string column : {"dates", "times", "labels", "bodies"}) {
    t.looks[column] = [textsAt, column](S j, auto& page) {
      return textsAt(j, page, [&column](const PrintColumns& c, const PrintedText& p) {
        const int x = column == "dates"    ? c.Date
                      : column == "times"  ? c.Time + 100
                      : column == "labels" ? c.Label
                                           : c.Body;
        return p.y > 0 && p.x == x;
      });
    };
  }
  // Where the page's rules across begin, top down: L at the left margin, T at the time column.
  t.looks["rules"] = [](S j, auto& page) {
    std::string rules;
    for (const PrintedRule& r : j.Page(page).rules) {
      if (r.y1 != r.y2) continue;
      rules += std::string(rules.empty() ? "" : " ") +
               (r.x1 == MeasureColumns(*j.device).Left ? "L" : "T");
    }
    return rules;
  };
  // Every record text printed, one after the other; texts past the right rule or the foot.
  t.looks["body-text"] = [](S j, auto&) {
    std::string all;
    for (const PrintedPage& page : j.device->Pages()) {
      for (const PrintedText& p : page.texts) {
        if (p.y > 0 && p.x == MeasureColumns(*j.device).Body) all += p.text;
      }
    }
    return CollapsedDigits(all);
  };
  t.looks["outside"] = [](S j, auto&) {
    std::vector<std::string> outside;
    for (const PrintedPage& page : j.device->Pages()) {
      for (const PrintedText& p : page.texts) {
        if (p.x + j.device->TextWidth(p.text) > MeasureColumns(*j.device).Right ||
            p.y + FakePrintDevice::kLineHeight > j.device->Height()) {
          outside.push_back(p.text);
        }
      }
    }
    return testing::Join(outside);
  };
  return t;
}

TEST(PrintJob, FollowsTheTraces) {
  JobTrace().Run("printing/print-job.txt", 6, 80);
}

}  // namespace
}  // namespace sched
