#include "printing/select_print_date_model.h"

#include "core/app_texts.h"
#include "printing/texts.h"

namespace sched {

void SelectPrintDateModel::Form_Load(const CivilDate& shown) {
  start_ = shown;
  end_ = shown;
}

bool SelectPrintDateModel::SchEditOK_Click() {
  const auto code = [](const CivilDate& d) { return DateCode(d.year, d.month, d.day); };
  if (code(start_) > code(end_)) {
    messages_.Show({print_texts::kStartAfterEnd, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
    return false;
  }
  const auto i16 = [](int value) { return static_cast<std::int16_t>(value); };
  range_ = {true,           i16(start_.year), i16(start_.month), i16(start_.day),
            i16(end_.year), i16(end_.month),  i16(end_.day)};
  return true;
}

}  // namespace sched
