#pragma once

#include <cstdint>
#include <string>

#include "platform/print_device.h"
#include "store/sch_tables.h"

namespace sched {

// The x positions of the list's rules and texts (PrintColumns). The widths come from samples
// measured with the printer's font, and each column has the first column's width as room on
// both sides of its text.
struct PrintColumns {
  int Left = 0;   // the left margin, the printer's width / 254: the list's left rule
  int Date = 0;   // the date text
  int Time = 0;   // the rule before the time column
  int Text = 0;   // the rule before the text column
  int Label = 0;  // "Title", "Place", "Memo"
  int Body = 0;   // the record's texts
  int Right = 0;  // the right rule, as far from the right edge as Left is from the left one
};
PrintColumns MeasureColumns(const PrintDevice& device);

// The time column's text: "h:nnam/pm-h:nnam/pm", or " Allday " for a record without a time.
std::string TimeRangeText(const SchDatRow& row);

// The pages of one copy of the list: the header of each page, the records as ruled rows.
class PagePrinter {
 public:
  // `name` is the document's short name; `stamp` the job's date and time as the header shows
  // them, before the page number.
  PagePrinter(PrintDevice& device, const PrintColumns& columns, std::string name,
              std::string stamp);

  // Starts a copy on a new page, numbered 1.
  void StartCopy();
  void PrintRecord(const SchDatRow& row, const RowTexts& texts);
  // Rules off the last record of the copy.
  void EndCopy();

  int Page() const { return page_; }

 private:
  void PrintPageHeader();
  // Makes room for one more line: on a full page, rules off the columns and goes on at the top
  // of the next page, with the date cell printed again.
  void NeedLine();
  void PrintDateCell();
  // Prints a label and its text, cut at the column's right edge onto as many lines as it takes.
  void PrintField(const char* label, const std::string& text);
  void RuleAcross(int fromX);
  void RuleColumns();

  PrintDevice& d_;
  PrintColumns c_;
  std::string name_;
  std::string stamp_;
  int lineHeight_;
  int pad_;   // between a rule and the text under or over it
  int foot_;  // no line reaches below it
  int page_ = 0;
  bool started_ = false;       // a page of the document has been begun
  std::int32_t lastDate_ = 0;  // the date of the last record printed on this page
  std::int32_t date_ = 0;      // the date of the record being printed
  int rowTop_ = 0;             // where the record's rules begin on this page
};

}  // namespace sched
