#include "tests/support/trace.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <sstream>

namespace sched::testing {
namespace {

// A counter driven by a trace: "add N" adds to it; the next dialog runs on the same counter.
struct Counter {
  int value = 0;
};

Trace<Counter> CounterTrace(bool opensDialogs) {
  Trace<Counter> t;
  t.steps["add"] = [](Counter& c, const CaseRow& row) { c.value += row.Int(1); };
  if (opensDialogs) {
    t.nextDialog = [](const Trace<Counter>& trace, Counter& c, Trace<Counter>::Lines lines,
                      std::string what) { trace.RunLines(c, lines, what); };
  }
  return t;
}

// Lines of a trace given as text, a line each, fields separated by blanks; line N is "trace:N".
Trace<Counter>::Lines Script(const std::vector<std::string>& texts) {
  Trace<Counter>::Lines lines;
  for (const std::string& text : texts) {
    CaseRow row{{}, "trace:" + std::to_string(lines.size() + 1)};
    std::istringstream fields(text);
    for (std::string field; fields >> field;) row.fields.push_back(field);
    row.fields.resize(3);
    lines.push_back(row);
  }
  return lines;
}

TEST(Trace, DialogLinesRunInTheNextDialogAndTheTraceGoesOnAfterThem) {
  Counter c;
  CounterTrace(true).RunLines(c,
                              Script({"in-next-dialog", "add 1", "in-next-dialog", "add 10",
                                      "end-dialog", "end-dialog", "add 100"}),
                              "nested");
  EXPECT_EQ(c.value, 111);
}

TEST(Trace, AMissingEndDialogFailsTheCaseAtItsInNextDialog) {
  Counter c;
  const Trace<Counter> t = CounterTrace(true);
  EXPECT_NONFATAL_FAILURE(
      t.RunLines(c, Script({"add 1", "in-next-dialog", "add 10", "add 100"}), "cut"),
      "trace:2: in-next-dialog without its end-dialog");
  EXPECT_EQ(c.value, 1);
}

TEST(Trace, DialogLinesInATraceWithoutDialogsFailTheCaseAtTheirLine) {
  Counter c;
  const Trace<Counter> t = CounterTrace(false);
  EXPECT_NONFATAL_FAILURE(
      t.RunLines(c, Script({"in-next-dialog", "add 10", "end-dialog", "add 1"}), "no dialogs"),
      "trace:1: in-next-dialog, but this trace opens no dialogs");
  EXPECT_EQ(c.value, 1);
}

}  // namespace
}  // namespace sched::testing
