#include "printing/page_layout.h"

#include <utility>
#include <vector>

#include "core/calendar.h"
#include "printing/texts.h"
#include "views/line_text.h"

namespace sched {
namespace {

namespace t = print_texts;

// The first column: the room before the date, and between every rule and the text beside it.
constexpr int kFirstColumn = 100;
// The header's date and time begin this far left of the page's right edge.
constexpr int kStampFromRight = 4800;

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// The offsets at which a UTF-8 text may be cut: after each character.
std::vector<std::size_t> CharacterEnds(const std::string& text) {
  std::vector<std::size_t> ends;
  for (std::size_t i = 1; i <= text.size(); ++i) {
    if (i == text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      ends.push_back(i);
    }
  }
  return ends;
}

// The length of the longest start of `text` that fits in `width`, at least one character so
// that every line takes something; a cut falls after the last blank that fits when there is one.
std::size_t FittingLength(const PrintDevice& device, const std::string& text, int width) {
  if (device.TextWidth(text) <= width) return text.size();
  const std::vector<std::size_t> ends = CharacterEnds(text);
  std::size_t low = 0;  // ends[low] fits, or nothing but the first character does
  std::size_t high = ends.size();
  while (high - low > 1) {
    const std::size_t mid = (low + high) / 2;
    if (device.TextWidth(text.substr(0, ends[mid])) <= width) {
      low = mid;
    } else {
      high = mid;
    }
  }
  const std::size_t fits = ends[low];
  if (fits == text.size()) return fits;
  const std::size_t blank = text.rfind(' ', fits - 1);
  return blank != std::string::npos && blank > 0 ? blank + 1 : fits;
}

// The lines of a text: its own line breaks kept, each line cut to `width`.
std::vector<std::string> CutLines(const PrintDevice& device, const std::string& text, int width) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (true) {
    const std::size_t stop = std::min(text.find('\n', start), text.size());
    std::string line = text.substr(start, stop - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    do {
      const std::size_t length = line.empty() ? 0 : FittingLength(device, line, width);
      lines.push_back(line.substr(0, length));
      line.erase(0, length);
    } while (!line.empty());
    if (stop == text.size()) return lines;
    start = stop + 1;
  }
}

}  // namespace

PrintColumns MeasureColumns(const PrintDevice& device) {
  PrintColumns c;
  c.Left = device.Width() / 254;
  c.Date = c.Left + kFirstColumn;
  c.Time = c.Date + device.TextWidth(t::kDateSample) + kFirstColumn;
  c.Text = c.Time + kFirstColumn + device.TextWidth(t::kTimeSample) + kFirstColumn;
  c.Label = c.Text + kFirstColumn;
  c.Body = c.Label + device.TextWidth(t::kLabelSample) + device.TextWidth(t::kGapSample);
  c.Right = device.Width() - c.Left;
  return c;
}

std::string TimeRangeText(const SchDatRow& row) {
  if (row.StartTime == -1) return t::kAllday;
  return ShortTimeText(row.StartTime) + "-" + ShortTimeText(row.EndTime);
}

PagePrinter::PagePrinter(PrintDevice& device, const PrintColumns& columns, std::string name,
                         std::string stamp)
    : d_(device),
      c_(columns),
      name_(std::move(name)),
      stamp_(std::move(stamp)),
      lineHeight_(device.TextHeight(t::kTitleLabel)),
      pad_(lineHeight_ / 6),
      foot_(device.Height() - lineHeight_) {}

void PagePrinter::StartCopy() {
  if (started_) d_.NewPage();
  started_ = true;
  page_ = 1;
  lastDate_ = 0;
  PrintPageHeader();
}

void PagePrinter::PrintPageHeader() {
  d_.SetCurrentY(0);
  d_.SetCurrentX(c_.Left);
  d_.Print(t::kFileNameOpen + (name_.empty() ? std::string(t::kUntitled) : name_) +
           t::kFileNameClose);
  d_.SetCurrentY(0);
  d_.SetCurrentX(d_.Width() - kStampFromRight);
  d_.Print(stamp_ + "-" + std::to_string(page_) + "-");
  // A blank line between the header and the list.
  d_.SetCurrentY(2 * lineHeight_);
}

void PagePrinter::PrintRecord(const SchDatRow& row, const RowTexts& texts) {
  date_ = DateCode(row.Year, row.Month, row.Day);
  if (d_.CurrentY() + 2 * pad_ + lineHeight_ > foot_) {
    RuleAcross(c_.Left);
    d_.NewPage();
    ++page_;
    PrintPageHeader();
    lastDate_ = 0;
  }
  const bool sameDate = date_ == lastDate_;
  RuleAcross(sameDate ? c_.Time : c_.Left);
  rowTop_ = d_.CurrentY();
  d_.SetCurrentY(rowTop_ + pad_);
  if (!sameDate) PrintDateCell();
  lastDate_ = date_;
  d_.SetCurrentX(c_.Time + kFirstColumn);
  d_.Print(TimeRangeText(row));
  PrintField(t::kTitleLabel, std::string(texts.Title));
  PrintField(t::kPlaceLabel, std::string(texts.Place));
  PrintField(t::kMemoLabel, std::string(texts.Memo));
  d_.SetCurrentY(d_.CurrentY() + pad_);
  RuleColumns();
}

void PagePrinter::EndCopy() {
  RuleAcross(c_.Left);
}

void PagePrinter::PrintDateCell() {
  const CivilDate date = DateOfCode(date_);
  d_.SetCurrentX(c_.Date);
  d_.Print(TwoDigits(date.month) + "/" + TwoDigits(date.day));
}

void PagePrinter::NeedLine() {
  if (d_.CurrentY() + lineHeight_ + pad_ <= foot_) return;
  d_.SetCurrentY(d_.CurrentY() + pad_);
  RuleColumns();
  RuleAcross(c_.Left);
  d_.NewPage();
  ++page_;
  PrintPageHeader();
  RuleAcross(c_.Left);
  rowTop_ = d_.CurrentY();
  d_.SetCurrentY(rowTop_ + pad_);
  PrintDateCell();
}

void PagePrinter::PrintField(const char* label, const std::string& text) {
  bool first = true;
  for (const std::string& line : CutLines(d_, text, c_.Right - kFirstColumn - c_.Body)) {
    NeedLine();
    const int y = d_.CurrentY();
    if (first) {
      d_.SetCurrentX(c_.Label);
      d_.Print(label);
      first = false;
    }
    d_.SetCurrentX(c_.Body);
    d_.Print(line);
    d_.SetCurrentY(y + lineHeight_);
  }
}

void PagePrinter::RuleAcross(int fromX) {
  d_.Line(fromX, d_.CurrentY(), c_.Right, d_.CurrentY());
}

void PagePrinter::RuleColumns() {
  const int bottom = d_.CurrentY();
  for (const int x : {c_.Left, c_.Time, c_.Text, c_.Right}) d_.Line(x, rowTop_, x, bottom);
}

}  // namespace sched
