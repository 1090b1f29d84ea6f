#pragma once

#include <gtest/gtest.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "core/calendar.h"

namespace sched::testing {

// One case of a case file: its tab-separated fields and where it stands ("file:line"), which
// every failure message about the case should name.
struct CaseRow {
  std::vector<std::string> fields;
  std::string where;

  const std::string& operator[](std::size_t i) const { return fields[i]; }

  // Field `i` as a whole number; a field that is not one fails the test.
  int Int(std::size_t i) const {
    int value = 0;
    const std::string& text = fields[i];
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
      ADD_FAILURE() << where << ": '" << text << "' is not a number";
    }
    return value;
  }

  // Field `i` as a 16-bit word written in hexadecimal, "0x102C"; any other text fails the test.
  std::uint16_t Hex(std::size_t i) const {
    const std::string& text = fields[i];
    const std::size_t start = text.starts_with("0x") ? 2 : 0;
    std::uint16_t value = 0;
    const auto [end, error] =
        std::from_chars(text.data() + start, text.data() + text.size(), value, 16);
    if (error != std::errc() || end != text.data() + text.size() || text.size() == start) {
      ADD_FAILURE() << where << ": '" << text << "' is not a hexadecimal word";
    }
    return value;
  }

  // Field `i` as "yes" or "no"; any other text fails the test.
  bool YesNo(std::size_t i) const {
    if (fields[i] != "yes" && fields[i] != "no") {
      ADD_FAILURE() << where << ": '" << fields[i] << "' is neither yes nor no";
    }
    return fields[i] == "yes";
  }

  // Field `i` as a date written YYYY-MM-DD; any other text, or a day the month does not have,
  // fails the test.
  CivilDate Date(std::size_t i) const {
    CivilDate date;
    char tail = 0;
    const bool read =
        fields[i].size() == 10 && std::sscanf(fields[i].c_str(), "%4d-%2d-%2d%c", &date.year,
                                              &date.month, &date.day, &tail) == 3;
    if (!read || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > DaysInMonth(date.year, date.month)) {
      ADD_FAILURE() << where << ": '" << fields[i] << "' is not a YYYY-MM-DD date";
    }
    return date;
  }
};

// `text` with its escapes replaced: \n, \r, \t, \0, \\ and \xHH, so that a case file can hold
// control characters and line breaks within a field.
inline std::string Unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    switch (const char c = text[++i]) {
      case 'n': out += '\n'; break;
      case 'r': out += '\r'; break;
      case 't': out += '\t'; break;
      case '0': out += '\0'; break;
      case 'x':
        out += char(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        i += 2;
        break;
      default: out += c;
    }
  }
  return out;
}

// The cases of tests/data/`name`: one a line, its `fieldCount` fields separated by tabs. Blank
// lines and lines starting with '#' are skipped; trailing empty fields may be left out. A file
// that cannot be read, has fewer than `minCases` cases, or a line with too many fields fails
// the test, so that a lost or cut file does not pass with nothing checked.
inline std::vector<CaseRow> ReadCases(const std::string& name, std::size_t fieldCount,
                                      std::size_t minCases) {
  const std::string path = std::string(SCHEDULER_TEST_DATA_DIR) + "/" + name;
  std::vector<CaseRow> rows;
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    ADD_FAILURE() << path << ": cannot be read";
    return rows;
  }
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find_first_not_of(" \t") == std::string::npos || line[0] == '#') continue;
    CaseRow row{{}, path + ":" + std::to_string(number)};
    for (std::size_t start = 0;;) {
      const std::size_t tab = line.find('\t', start);
      row.fields.push_back(line.substr(start, tab - start));
      if (tab == std::string::npos) break;
      start = tab + 1;
    }
    if (row.fields.size() > fieldCount) {
      ADD_FAILURE() << row.where << ": " << row.fields.size() << " fields, expected " << fieldCount;
      continue;
    }
    row.fields.resize(fieldCount);
    rows.push_back(std::move(row));
  }
  EXPECT_GE(rows.size(), minCases) << path << ": too few cases";
  return rows;
}

}  // namespace sched::testing
