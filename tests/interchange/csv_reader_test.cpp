#include "interchange/csv_reader.h"

#include <gtest/gtest.h>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::ReadCases;
using testing::Unescaped;

// The rows as the import reads them, in the form of the case file.
std::string Trace(std::string_view file, CodePage page) {
  CsvReader reader(file, page);
  std::string trace;
  std::string stop = "end_of_file";
  try {
    while (reader.CsvReadPos() < reader.CsvFileLength()) {
      const CsvRow row = reader.ReadCsvRow();
      for (const std::string& item : row.items) trace += "{" + item + "}";
      if (!row.items.empty()) trace += " ";
      trace += (row.atLineEnd ? "L" : "- ") + std::to_string(row.errorCode) + " @" +
               std::to_string(reader.CsvReadPos()) + " ";
      if (row.items.empty() && row.atLineEnd) {
        stop = "empty_line";
        break;
      }
    }
  } catch (const CsvReadFailure&) {
    stop = "failure";
  }
  return trace + "=> " + stop;
}

TEST(CsvReader, TracesOfTheCaseFile) {
  for (const auto& c : ReadCases("interchange/reader-traces.txt", 3, 20)) {
    const CodePage page = c.Int(1) == 932 ? CodePage::kJapanese : CodePage::kWestern;
    EXPECT_EQ(Trace(Unescaped(c[0]), page), Unescaped(c[2])) << c.where;
  }
}

}  // namespace
}  // namespace sched
