#include "interchange/csv_file_check.h"

#include "core/app_texts.h"
#include "core/text_case.h"
#include "interchange/texts.h"

namespace sched {

bool IsCsvName(std::string_view name) {
  constexpr std::string_view kExtension = ".csv";
  return name.size() >= kExtension.size() &&
         EqualsIgnoringCase(name.substr(name.size() - kExtension.size()), kExtension);
}

bool CheckIsCsvFile(std::string_view name, Messages& messages) {
  if (IsCsvName(name)) return true;
  messages.Show({texts::kNotCsvFile, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
  return false;
}

}  // namespace sched
