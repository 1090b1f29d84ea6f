#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "include_directions.h"

namespace sched::layering {
namespace {

constexpr const char* kTable = R"(# Directions

Some words, and a table of something else:

| folder | what |
|---|---|
| `ignored` | `also ignored` |

| folder | may include | Qt |
|---|---|---|
| `base` | nothing | no |
| `base/impl` | `base` | no |
| `middle` | `base` | no |
| `gui` | `middle`, `base/impl`, `base` | yes |

After the table.
)";

Directions Tiny() {
  std::vector<std::string> errors;
  const Directions directions = ParseDirections(kTable, errors);
  EXPECT_EQ(errors, std::vector<std::string>{});
  return directions;
}

TEST(IncludeDirectionsChecker, SaysWhatIsWrongWithATable) {
  struct Case {
    std::string rows;
    std::string error;
  };
  const std::string head = "| folder | may include | Qt |\n|---|---|---|\n| `z` | nothing | no |\n";
  const std::string notARow = ": not a row | `folder` | `folder`, ... or nothing | yes or no |";
  for (const Case& c : {
           Case{"| `a` | nothing | maybe |\n", "line 4" + notARow},
           Case{"| a | nothing | no |\n", "line 4" + notARow},
           Case{"| `a` | b | no |\n", "line 4" + notARow},
           Case{"| `a` | `b`, c | no |\n", "line 4" + notARow},
           Case{"| `a` | nothing |\n", "line 4" + notARow},
           Case{"| `a` | nothing | no |\n| `a` | nothing | no |\n", "line 5: `a` has two rows"},
           Case{"| `a` | `b` | no |\n", "`b` has no row of its own"},
       }) {
    std::vector<std::string> errors;
    ParseDirections(head + c.rows, errors);
    EXPECT_EQ(errors, std::vector<std::string>{c.error}) << c.rows;
  }
  std::vector<std::string> errors;
  ParseDirections("| folder | what |\n|---|---|\n", errors);
  EXPECT_EQ(errors, std::vector<std::string>{"no table headed \"| folder | may include | Qt |\""});
}

TEST(IncludeDirectionsChecker, ReportsEachBreachWithFileAndLine) {
  const std::string text =
      "#include \"middle/model.h\"\n"
      "// #include is only a word here\n"
      "#  include   \"gui/window.h\"\n"
      "#include <string>\n"
      "#include <QString>\n"
      "#include \"base/impl/thing.h\"\n"
      "#include \"local.h\"\n"
      "#include \"base/other.h\"\n";
  EXPECT_EQ(CheckFile(Tiny(), "base/x.cpp", text),
            (std::vector<std::string>{
                "src/base/x.cpp:1: base may not include middle (#include \"middle/model.h\")",
                "src/base/x.cpp:3: base may not include gui (#include \"gui/window.h\")",
                "src/base/x.cpp:5: base may not include Qt (#include <QString>)",
                "src/base/x.cpp:6: base may not include base/impl (#include \"base/impl/thing.h\")",
            }));
  EXPECT_EQ(CheckFile(Tiny(), "gui/window.cpp", text), std::vector<std::string>{});
}

TEST(IncludeDirectionsChecker, AFolderWithoutARowIsABreach) {
  EXPECT_EQ(CheckFile(Tiny(), "newcomer/thing.h", ""),
            std::vector<std::string>{
                "src/newcomer/thing.h: the folder \"newcomer\" has no row in the table"});
  EXPECT_EQ(CheckFile(Tiny(), "base/deeper/thing.h", "#include \"base/x.h\"\n").size(), 1u);
}

TEST(IncludeDirectionsChecker, FindsFoldersThatIncludeEachOther) {
  EXPECT_EQ(Cycles(Tiny()), std::vector<std::string>{});
  Directions directions = Tiny();
  directions["base"].mayInclude.insert("gui");
  EXPECT_EQ(Cycles(directions),
            (std::vector<std::string>{"base -> gui -> base", "base -> gui -> base/impl -> base",
                                      "base -> gui -> middle -> base"}));
}

}  // namespace
}  // namespace sched::layering
