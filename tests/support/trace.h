#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/case_file.h"

namespace sched::testing {

// A trace: a case file that drives one object the way a user does, a step a line.
// "case<TAB>what" starts over on a new State. "is<TAB>look<TAB>expected" compares what the look
// gives with the expected text, its escapes undone; a look may take an argument, written
// "look:arg". Any other line is a step named by its first field. The lines between
// "in-next-dialog" and its "end-dialog" run in the next dialog that opens, by `nextDialog`.
// When its case is over, a State's End(), when it has one, and each check of `atEnd` look at
// what must hold at the end of every case.
template <class State>
struct Trace {
  using Step = std::function<void(State&, const CaseRow&)>;
  using Look = std::function<std::string(State&, const std::string& arg)>;
  using Lines = std::vector<CaseRow>;
  std::map<std::string, Step> steps;
  std::map<std::string, Look> looks;
  // The look of a name that no look of the map has, when set; it takes the whole name.
  Look otherLook;
  // Runs the lines on the dialog that opens next, for traces of windows.
  std::function<void(const Trace&, State&, Lines, std::string what)> nextDialog;
  std::vector<std::function<void(State&)>> atEnd;

  void Run(const std::string& name, std::size_t fields, std::size_t minLines) const {
    std::vector<std::pair<std::string, Lines>> cases;
    for (const CaseRow& row : ReadCases(name, fields, minLines)) {
      if (row[0] == "case") {
        cases.push_back({row[1], {}});
      } else if (cases.empty()) {
        ADD_FAILURE() << row.where << ": a step before the first case";
      } else {
        cases.back().second.push_back(row);
      }
    }
    for (const auto& [what, lines] : cases) {
      State state;
      RunLines(state, lines, what);
      SCOPED_TRACE("at the end of case " + what);
      if constexpr (requires { state.End(); }) state.End();
      for (const auto& check : atEnd) check(state);
    }
  }

  void RunLines(State& state, const Lines& lines, const std::string& what) const {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const CaseRow& row = lines[i];
      SCOPED_TRACE(row.where + ", case " + what);
      if (row[0] == "in-next-dialog") {
        Lines inner;
        int depth = 1;
        for (; ++i < lines.size(); inner.push_back(lines[i])) {
          if (lines[i][0] == "in-next-dialog") ++depth;
          if (lines[i][0] == "end-dialog" && --depth == 0) break;
        }
        if (depth != 0) {
          ADD_FAILURE() << row.where << ": in-next-dialog without its end-dialog";
        } else if (!nextDialog) {
          ADD_FAILURE() << row.where << ": in-next-dialog, but this trace opens no dialogs";
        } else {
          nextDialog(*this, state, inner, what);
        }
      } else if (row[0] == "is") {
        const std::size_t colon = row[1].find(':');
        const auto look = looks.find(row[1].substr(0, colon));
        const std::string arg = colon == std::string::npos ? "" : row[1].substr(colon + 1);
        if (look != looks.end()) {
          EXPECT_EQ(look->second(state, arg), Unescaped(row[2])) << row[1];
        } else if (otherLook) {
          EXPECT_EQ(otherLook(state, row[1]), Unescaped(row[2])) << row[1];
        } else {
          ADD_FAILURE() << "no look " << row[1];
        }
      } else if (const auto step = steps.find(row[0]); step != steps.end()) {
        step->second(state, row);
      } else {
        ADD_FAILURE() << "no step " << row[0];
      }
    }
  }
};

// The items of a list as texts, each made by `text`, joined by `separator`.
template <class List, class Text>
std::string Join(const List& list, const char* separator, Text text) {
  std::string joined;
  for (const auto& item : list) {
    joined += (joined.empty() ? "" : separator) + std::string(text(item));
  }
  return joined;
}
inline std::string Join(const std::vector<std::string>& texts, const char* separator = " | ") {
  return Join(texts, separator, [](const std::string& text) { return text; });
}

// "yes" or "no".
inline std::string YesNo(bool value) {
  return value ? "yes" : "no";
}

// A repeat word as the case files write it, "0x102C".
inline std::string HexWord(std::uint16_t word) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04X", word);
  return text;
}

}  // namespace sched::testing
