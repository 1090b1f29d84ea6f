#pragma once

#include "appointments/repeat_rule.h"
#include "core/calendar.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"

namespace sched {

// The repeat dialog (Repeat): the rule of a one-day appointment, kept inside what fits before
// 2099/12/31. It fills the edit session's working values and writes nothing to the store.
class RepeatModel {
 public:
  RepeatModel(RepeatWork& work, Messages& messages, const DateFormatter& dates)
      : work_(work), messages_(messages), dates_(dates) {}

  // Opens on the edit dialog's start date: loads the form, reads an existing rule
  // (RepeatDialogFromRule when RepeatCode is not 0), and writes both date captions and the
  // sentence.
  void Open(const CivilDate& editStart);

  // True once OK closed the dialog; the edit dialog then takes StartDate.
  bool Confirmed() const { return confirmed_; }
  const CivilDate& StartDate() const { return startDate_; }
  // The dialog closes without OK: the count and the code go back to what they were.
  void Form_Unload();

 private:
  RepeatWork& work_;
  Messages& messages_;
  const DateFormatter& dates_;
  bool confirmed_ = false;
  CivilDate startDate_;
};

}  // namespace sched
