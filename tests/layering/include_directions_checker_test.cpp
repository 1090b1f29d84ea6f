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

Directions Parse(const std::string& markdown, std::vector<std::string>& errors) {
  return ParseDirections(markdown, errors);
}

Directions Tiny() {
  std::vector<std::string> errors;
  const Directions directions = Parse(kTable, errors);
  EXPECT_EQ(errors, std::vector<std::string>{});
  return directions;
}

TEST(IncludeDirectionsChecker, ReadsEachRowOfTheTable) {
  const Directions directions = Tiny();
  ASSERT_EQ(directions.size(), 4u);
  EXPECT_TRUE(directions.at("base").mayInclude.empty());
  EXPECT_FALSE(directions.at("base").qt);
  EXPECT_EQ(directions.at("base/impl").mayInclude, std::set<std::string>{"base"});
  EXPECT_EQ(directions.at("gui").mayInclude,
            (std::set<std::string>{"middle", "base/impl", "base"}));
  EXPECT_TRUE(directions.at("gui").qt);
  EXPECT_FALSE(directions.contains("ignored"));
}

TEST(IncludeDirectionsChecker, SaysWhatIsWrongWithATable) {
  struct Case {
    std::string rows;
    std::string error;
  };
  const std::string head = "| folder | may include | Qt |\n|---|---|---|\n| `z` | nothing | no |\n";
  for (const Case& c : {
           Case{"| `a` | nothing | maybe |\n", "line 4: the Qt cell is neither yes nor no"},
           Case{"| a | nothing | no |\n", "line 4: the folder is not written as `name`"},
           Case{"| `a` | b | no |\n", "line 4: \"b\" is not written as `name`"},
           Case{"| `a` | nothing |\n", "line 4: a row needs three cells"},
           Case{"| `a` | nothing | no |\n| `a` | nothing | no |\n", "line 5: `a` has two rows"},
           Case{"| `a` | `b` | no |\n", "`b` has no row of its own"},
       }) {
    std::vector<std::string> errors;
    Parse(head + c.rows, errors);
    EXPECT_EQ(errors, std::vector<std::string>{c.error}) << c.rows;
  }
  std::vector<std::string> errors;
  Parse("| folder | what |\n|---|---|\n", errors);
  EXPECT_EQ(errors, std::vector<std::string>{"no table headed \"| folder | may include | Qt |\""});
}

TEST(IncludeDirectionsChecker, TheFolderOfAPathIsAllButItsFileName) {
  EXPECT_EQ(FolderOf("store/table.h"), "store");
  EXPECT_EQ(FolderOf("platform/std/console.h"), "platform/std");
  EXPECT_EQ(FolderOf("main.cpp"), "");
}

TEST(IncludeDirectionsChecker, AllowsTheListedFoldersItsOwnAndTheStandardLibrary) {
  const std::string text =
      "#include \"gui/window.h\"\n"
      "#include \"local.h\"\n"
      "#include \"middle/model.h\"\n"
      "#  include   \"base/impl/thing.h\"\n"
      "#include <QWidget>\n"
      "#include <queue>\n";
  EXPECT_EQ(CheckFile(Tiny(), "gui/window.cpp", text), std::vector<std::string>{});
}

TEST(IncludeDirectionsChecker, ReportsEachBreachWithFileAndLine) {
  const std::string text =
      "#include \"middle/model.h\"\n"
      "// #include is only a word here\n"
      "#include \"gui/window.h\"\n"
      "#include <string>\n"
      "#include <QString>\n"
      "#include \"base/impl/thing.h\"\n";
  EXPECT_EQ(CheckFile(Tiny(), "base/x.cpp", text),
            (std::vector<std::string>{
                "src/base/x.cpp:1: base may not include middle (#include \"middle/model.h\")",
                "src/base/x.cpp:3: base may not include gui (#include \"gui/window.h\")",
                "src/base/x.cpp:5: base may not include Qt (#include <QString>)",
                "src/base/x.cpp:6: base may not include base/impl (#include \"base/impl/thing.h\")",
            }));
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
