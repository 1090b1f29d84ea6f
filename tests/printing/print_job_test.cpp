#include "printing/print_job.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
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
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;

// One text the fake device printed: where, and what.
struct PrintedText {
  int x = 0;
  int y = 0;
  std::string text;
};

// A page of the fake device's record.
struct PrintedPage {
  std::vector<PrintedText> texts;
  std::vector<std::vector<int>> lines;  // x1 y1 x2 y2
};

std::vector<PrintedPage> Pages(const FakePrintDevice& device) {
  std::vector<PrintedPage> pages(1);
  for (const std::string& drawn : device.Drawn()) {
    std::istringstream in(drawn);
    std::string word;
    in >> word;
    if (word == "page") {
      pages.emplace_back();
    } else if (word == "text") {
      PrintedText text;
      in >> text.x >> text.y;
      in.get();
      std::getline(in, text.text);
      pages.back().texts.push_back(text);
    } else if (word == "line") {
      std::vector<int> line(4);
      for (int& value : line) in >> value;
      pages.back().lines.push_back(line);
    }
  }
  if (pages.size() == 1 && pages[0].texts.empty()) pages.clear();
  return pages;
}

// A page by its number, counted from 1 as a look's argument gives it.
PrintedPage PageOf(const FakePrintDevice& device, const std::string& number) {
  const std::vector<PrintedPage> pages = Pages(device);
  const std::size_t index = std::stoul(number) - 1;
  if (index < pages.size()) return pages[index];
  ADD_FAILURE() << "no page " << number;
  return {};
}

// The window of a job that a user cancels after some records.
class FakePrintingWindow : public PrintingWindow {
 public:
  int cancelAfter = -1;  // records printed when cancel is pressed; -1 never
  bool shown = false;
  int calls = 0;
  void Show(std::function<void()> cancel) override {
    shown = true;
    cancel_ = std::move(cancel);
  }
  void DoEvents(int done, int) override {
    ++calls;
    if (done == cancelAfter) cancel_();
  }
  void Close() override { shown = false; }

 private:
  std::function<void()> cancel_;
};

// The main window as the print command sees it: the dialogs answer as a step told them.
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
  // The select dialog's dates, none for Cancel; the print dialog's copies, none for Cancel.
  std::optional<std::pair<CivilDate, CivilDate>> select;
  std::optional<int> copies;
  int refreshed = 0;
  int previews = 0;
  std::int32_t stamps = 0;  // the last record's Stamp

  void ShowSelectPrintDate(SelectPrintDateModel& model) override {
    if (!select) return model.SchEditCAN_Click();
    model.ImDate1_Change(select->first);
    model.ImDate2_Change(select->second);
    EXPECT_TRUE(model.SchEditOK_Click());
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
};

// The text with each run of "0123456789..." written as "<N digits>".
std::string CollapsedDigits(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t run = 0;
    while (i + run < text.size() && text[i + run] == '0' + static_cast<char>(run % 10)) ++run;
    if (run >= 10) {
      out += "<" + std::to_string(run) + " digits>";
      i += run;
    } else {
      out += text[i++];
    }
  }
  return out;
}

using S = Job&;
using R = const CaseRow&;

// Which column a text stands in: the x of its kind.
int ColumnX(const PrintColumns& c, const std::string& name) {
  if (name == "dates") return c.Date;
  if (name == "labels") return c.Label;
  if (name == "bodies") return c.Body;
  return c.Time + 100;
}

testing::Trace<Job> JobTrace() {
  testing::Trace<Job> t;
  testing::AddMessageWords(t);
  t.steps["page"] = [](S j, R row) {
    j.device = std::make_unique<FakePrintDevice>(row.Int(1), row.Int(2));
  };
  t.steps["file"] = [](S j, R row) { j.doc.ScheduleFile = row[1]; };
  // add DATE TIME|allday TITLE PLACE MEMO, or a memo of MEMO digits when it is a number
  // followed by "digits".
  t.steps["add"] = [](S j, R row) {
    SchRecord r;
    SetStartDate(r, row.Date(1));
    SetEndDate(r, row.Date(1));
    if (row[2] != "allday") {
      r.StartTime = static_cast<std::int16_t>(std::stoi(row[2].substr(0, 2)) * 60 +
                                              std::stoi(row[2].substr(3, 2)));
      r.EndTime = static_cast<std::int16_t>(std::stoi(row[2].substr(6, 2)) * 60 +
                                            std::stoi(row[2].substr(9, 2)));
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
  // print START END COPIES: "-" for a start cancels the select dialog, for copies the print
  // dialog.
  t.steps["print"] = [](S j, R row) {
    if (row[1] != "-") j.select = {{row.Date(1), row.Date(2)}};
    if (row[3] != "-") j.copies = row.Int(3);
    MenuPrint_Click(j.doc, j, {j.messages, j.dates, j.clock});
  };

  t.steps["preview"] = [](S j, R row) {
    if (row[1] != "-") j.select = {{row.Date(1), row.Date(2)}};
    MenuPrintPreview_Click(j.doc, j, {j.messages, j.dates, j.clock});
  };

  t.looks["previews"] = [](S j, auto&) { return std::to_string(j.previews); };
  t.looks["font"] = [](S j, auto&) { return std::to_string(j.device->FontSize()); };
  t.looks["refreshed"] = [](S j, auto&) { return std::to_string(j.refreshed); };
  // "end", "kill" or "none": how the document was finished.
  t.looks["doc"] = [](S j, auto&) -> std::string {
    const auto& drawn = j.device->Drawn();
    const auto last = std::find_if(drawn.rbegin(), drawn.rend(),
                                   [](const std::string& d) { return d == "end" || d == "kill"; });
    return last == drawn.rend() ? "none" : *last;
  };
  t.looks["pages"] = [](S j, auto&) { return std::to_string(Pages(*j.device).size()); };
  t.looks["columns"] = [](S j, auto&) {
    const PrintColumns c = MeasureColumns(*j.device);
    return testing::Join(std::vector<int>{c.Left, c.Date, c.Time, c.Text, c.Label, c.Body, c.Right},
                         " ", [](int x) { return std::to_string(x); });
  };
  // The header texts of a page (1 for the first).
  t.looks["header"] = [](S j, const std::string& page) {
    std::vector<std::string> texts;
    const PrintedPage printed = PageOf(*j.device, page);
    for (const PrintedText& p : printed.texts) {
      if (p.y == 0) texts.push_back(p.text);
    }
    return testing::Join(texts);
  };
  // The texts of one column on a page: "dates:1", "times:2", "labels:1", "bodies:3".
  for (const char* column : {"dates", "times", "labels", "bodies"}) {
    t.looks[column] = [column](S j, const std::string& page) {
      const int x = ColumnX(MeasureColumns(*j.device), column);
      std::vector<std::string> texts;
      const PrintedPage printed = PageOf(*j.device, page);
      for (const PrintedText& p : printed.texts) {
        if (p.x == x && p.y > 0) texts.push_back(p.text);
      }
      return testing::Join(texts);
    };
  }
  // Where the page's rules across begin, top to bottom: "L" at the left margin, "T" at the
  // time column.
  t.looks["rules"] = [](S j, const std::string& page) {
    const PrintColumns c = MeasureColumns(*j.device);
    std::string rules;
    const PrintedPage printed = PageOf(*j.device, page);
    for (const auto& l : printed.lines) {
      if (l[1] != l[3]) continue;
      rules += std::string(rules.empty() ? "" : " ") + (l[0] == c.Left ? "L" : "T");
    }
    return rules;
  };
  // All of the record texts printed, in order, as one text; a memo of digits as "<N digits>".
  t.looks["body-text"] = [](S j, auto&) {
    const int x = MeasureColumns(*j.device).Body;
    std::string all;
    for (const PrintedPage& page : Pages(*j.device)) {
      for (const PrintedText& p : page.texts) all += p.x == x && p.y > 0 ? p.text : "";
    }
    return CollapsedDigits(all);
  };
  // Texts that reach past the right rule, or below the foot of the page.
  t.looks["outside"] = [](S j, auto&) {
    const PrintColumns c = MeasureColumns(*j.device);
    std::vector<std::string> outside;
    for (const PrintedPage& page : Pages(*j.device)) {
      for (const PrintedText& p : page.texts) {
        if (p.x + j.device->TextWidth(p.text) > c.Right ||
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
  JobTrace().Run("printing/print-job.txt", 6, 60);
}

}  // namespace
}  // namespace sched
