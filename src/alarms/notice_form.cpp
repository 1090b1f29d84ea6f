#include "alarms/notice_form.h"

#include <charconv>

#include "alarms/texts.h"

namespace sched {
namespace {

// "2026/11/3" in the system's short form; a text that is no date stays as it is.
std::string ShortDateOf(const std::string& dateText, const DateFormatter& dates) {
  int fields[3] = {0, 0, 0};
  const char* at = dateText.data();
  const char* const end = at + dateText.size();
  for (int i = 0; i < 3; ++i) {
    if (i > 0 && (at == end || *at++ != '/')) return dateText;
    const auto [next, error] = std::from_chars(at, end, fields[i]);
    if (error != std::errc()) return dateText;
    at = next;
  }
  if (at != end || !IsValidDate(fields[0], fields[1], fields[2])) return dateText;
  return dates.ShortDate(fields[0], fields[1], fields[2]);
}

}  // namespace

NoticeForm MakeNoticeForm(const PendingNotice& notice, const DateFormatter& dates) {
  return {alarm_texts::kNoticeCaption,
          notice.Title,
          {ShortDateOf(notice.DateText, dates), notice.TimeText, notice.Place},
          notice.Memo};
}

}  // namespace sched
