#pragma once

#include <gtest/gtest.h>

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
// "look:arg". Any other line is a step named by its first field. When its case is over, a
// State's End() checks what must hold at the end of every case.
template <class State>
struct Trace {
  using Step = std::function<void(State&, const CaseRow&)>;
  using Look = std::function<std::string(State&, const std::string& arg)>;
  std::map<std::string, Step> steps;
  std::map<std::string, Look> looks;
  // The look of a name that no look of the map has, when set; it takes the whole name.
  Look otherLook;

  void Run(const std::string& name, std::size_t fields, std::size_t minLines) const {
    std::unique_ptr<State> state;
    std::string what;
    const auto end = [&] {
      SCOPED_TRACE("at the end of case " + what);
      if (state) state->End();
    };
    for (const CaseRow& row : ReadCases(name, fields, minLines)) {
      SCOPED_TRACE(row.where + ", case " + what);
      if (row[0] == "case") {
        end();
        state.reset();  // the old state goes before the new one comes
        state = std::make_unique<State>();
        what = row[1];
      } else if (!state) {
        ADD_FAILURE() << "a step before the first case";
      } else if (row[0] == "is") {
        const std::size_t colon = row[1].find(':');
        const auto look = looks.find(row[1].substr(0, colon));
        const std::string arg = colon == std::string::npos ? "" : row[1].substr(colon + 1);
        if (look != looks.end()) {
          EXPECT_EQ(look->second(*state, arg), Unescaped(row[2])) << row[1];
        } else if (otherLook) {
          EXPECT_EQ(otherLook(*state, row[1]), Unescaped(row[2])) << row[1];
        } else {
          ADD_FAILURE() << "no look " << row[1];
        }
      } else if (const auto step = steps.find(row[0]); step != steps.end()) {
        step->second(*state, row);
      } else {
        ADD_FAILURE() << "no step " << row[0];
      }
    }
    end();
  }
};

// The items of a list as texts, each made by `text`, joined by `separator`.
template <class List, class Text>
std::string Join(const List& list, const char* separator, Text text) {
  std::string joined;
  for (const auto& item : list)
    joined += (joined.empty() ? "" : separator) + std::string(text(item));
  return joined;
}
inline std::string Join(const std::vector<std::string>& texts, const char* separator = " | ") {
  return Join(texts, separator, [](const std::string& text) { return text; });
}

// "yes" or "no".
inline std::string YesNo(bool value) {
  return value ? "yes" : "no";
}

}  // namespace sched::testing
