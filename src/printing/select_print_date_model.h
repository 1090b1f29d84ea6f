#pragma once

#include <cstdint>

#include "core/calendar.h"
#include "platform/messages.h"

namespace sched {

// The range to print, as SelectPrintDate leaves it.
struct PrintRange {
  bool Accepted = false;
  std::int16_t StartYear = 0;
  std::int16_t StartMonth = 0;
  std::int16_t StartDay = 0;
  std::int16_t EndYear = 0;
  std::int16_t EndMonth = 0;
  std::int16_t EndDay = 0;
};

// The dialog that asks for the range to print (SelectPrintDate): a start date box (ImDate1) and
// an end date box (ImDate2), each with its drop-down calendar showing the same date.
class SelectPrintDateModel {
 public:
  SelectPrintDateModel(PrintRange& range, Messages& messages)
      : range_(range), messages_(messages) {}

  // Both boxes open on `shown`, the date the views stand on.
  void Form_Load(const CivilDate& shown);
  // A date typed into a box or picked from its calendar.
  void ImDate1_Change(const CivilDate& date) { start_ = date; }
  void ImDate2_Change(const CivilDate& date) { end_ = date; }
  // OK: takes the range and closes; a start after the end is refused and the dialog stays.
  // True when the dialog closes.
  bool SchEditOK_Click();
  void SchEditCAN_Click() { range_.Accepted = false; }

  const CivilDate& Start() const { return start_; }
  const CivilDate& End() const { return end_; }

 private:
  PrintRange& range_;
  Messages& messages_;
  CivilDate start_;
  CivilDate end_;
};

}  // namespace sched
