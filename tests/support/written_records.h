#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "core/app_texts.h"
#include "platform/fake/fake_messages.h"
#include "store/schedule_store.h"
#include "tests/support/date_text.h"

namespace sched {

// The live records of SchDatList from row `firstRow` on, in the order they were written.
inline std::vector<SchRecord> LiveRecords(const SchDatCTL& ctl, int firstRow = 0) {
  std::vector<SchRecord> records;
  const auto& list = ctl.SchDatList;
  for (int row = firstRow; row < list.Rows(); ++row) {
    if (list.At(row).IsLive()) records.push_back(RowToRecord(list, row));
  }
  return records;
}

inline std::string StartText(const SchRecord& r) {
  return DateText(r.Year, r.Month, r.Day);
}
inline std::string EndText(const SchRecord& r) {
  return DateText(r.EndYear, r.EndMonth, r.EndDay);
}
// The start dates of the records, separated by blanks.
inline std::string DatesOf(const std::vector<SchRecord>& records) {
  std::string dates;
  for (const SchRecord& r : records) dates += (dates.empty() ? "" : " ") + StartText(r);
  return dates;
}

// The texts of the messages shown from the `from`th on; each must be a warning of the program
// with an OK button.
inline std::vector<std::string> WarningTexts(const FakeMessages& messages, std::size_t from = 0) {
  std::vector<std::string> texts;
  for (std::size_t i = from; i < messages.Shown().size(); ++i) {
    const MessageRequest& m = messages.Shown()[i];
    EXPECT_EQ(m.title, kAppTitle);
    EXPECT_EQ(m.icon, MsgIcon::Exclamation);
    EXPECT_EQ(m.buttons, MsgButtons::Ok);
    texts.push_back(m.text);
  }
  return texts;
}
// A case file's message field as the list of texts it stands for: none when empty.
inline std::vector<std::string> MessageList(const std::string& text) {
  return text.empty() ? std::vector<std::string>{} : std::vector<std::string>{text};
}

}  // namespace sched
