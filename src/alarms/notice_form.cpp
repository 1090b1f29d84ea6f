#include "alarms/notice_form.h"

#include <optional>
#include <string_view>

#include "alarms/texts.h"
#include "core/number_text.h"

namespace sched {
namespace {

// "2026/11/3" in the system's short form; a text that is no date stays as it is.
std::string ShortDateOf(const std::string& dateText, const DateFormatter& dates) {
  int fields[3] = {0, 0, 0};
  std::string_view rest = dateText;
  for (int i = 0; i < 3; ++i) {
    const std::size_t slash = i < 2 ? rest.find('/') : rest.size();
    if (slash == std::string_view::npos) return dateText;
    const std::optional<int> number = ParseInt(rest.substr(0, slash));
    if (!number) return dateText;
    fields[i] = *number;
    if (i < 2) rest.remove_prefix(slash + 1);
  }
  if (!IsValidDate(fields[0], fields[1], fields[2])) return dateText;
  return dates.ShortDate(fields[0], fields[1], fields[2]);
}

}  // namespace

NoticeForm MakeNoticeForm(const PendingNotice& notice, const DateFormatter& dates) {
  return {notice.Id,
          alarm_texts::kNoticeCaption,
          notice.MissedAt.empty() ? "" : alarm_texts::kMissedAt + notice.MissedAt,
          notice.Title,
          {ShortDateOf(notice.DateText, dates), notice.TimeText, notice.Place},
          notice.Memo};
}

}  // namespace sched
