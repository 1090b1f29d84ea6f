#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <sstream>

#include "store/row_order.h"
#include "tests/support/case_file.h"
#include "tests/support/run_command.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

std::string Quoted(const std::string& path) {
  return "'" + path + "'";
}

// `text` with every `name` replaced by `value`.
std::string Replaced(std::string text, const std::string& name, const std::string& value) {
  for (std::size_t at = text.find(name); at != std::string::npos;
       at = text.find(name, at + value.size())) {
    text.replace(at, name.size(), value);
  }
  return text;
}

// The arguments of a run: its folders put in, each path quoted for the shell.
std::string Arguments(const std::string& fields, const std::string& dir) {
  const std::map<std::string, std::string> folders = {{"$DIR/", dir + "/"},
                                                      {"$DATA/", SCHEDULER_DATA_DIR "/"},
                                                      {"$TESTDATA/", SCHEDULER_TEST_DATA_DIR "/"}};
  std::istringstream words(fields);
  std::string args;
  for (std::string word; words >> word;) {
    for (const auto& [name, folder] : folders) {
      if (word.starts_with(name)) word = Quoted(folder + word.substr(name.size()));
    }
    if (word == "$DIR") word = Quoted(dir);
    args += " " + word;
  }
  return args;
}

// Runs scltool and gives its exit status and the stream asked for: out, err, or both (which
// a fixture's run gives too). The window's settings are those of tests/data/cli/config.
std::pair<int, std::string> Scltool(const std::string& args, const std::string& stream) {
  const std::map<std::string, std::string> redirect = {
      {"both", " 2>&1"}, {"make", " 2>&1"}, {"out", " 2>/dev/null"}, {"err", " 2>&1 >/dev/null"}};
  return RunCommand("XDG_CONFIG_HOME=" SCHEDULER_TEST_DATA_DIR "/cli/config " SCLTOOL_PATH + args +
                    redirect.at(stream));
}

// The live rows of a schedule file in date order, as "Title M-D, ..."; "unreadable" when it
// does not load.
std::string LiveRowsOf(const std::string& file, bool countOnly) {
  TestStore s;
  if (!s.LoadFrom(file)) return "unreadable";
  if (countOnly) return std::to_string(s.doc.Tables.RowCount);
  std::string rows;
  for (int row : LiveRowsInDateOrder(s.doc.Tables)) {
    const SchDatRow& r = s.doc.Tables.SchDatList.At(row);
    rows += (rows.empty() ? "" : ", ") + std::string(s.doc.Tables.SchDatList.Texts(r).Title) + " " +
            std::to_string(r.Month) + "-" + std::to_string(r.Day);
  }
  return rows;
}

// What a file of the run's folder holds afterwards, against the sixth field of its case.
void CheckFile(const testing::CaseRow& row, const std::string& dir, const TempDir& fixtures) {
  const std::size_t blank = row[5].find(' ');
  const std::string file = dir + "/" + row[5].substr(0, blank);
  const std::string holds = row[5].substr(blank + 1);
  if (holds == "-") {
    EXPECT_FALSE(fs::exists(file)) << row.where;
  } else if (holds == "=") {
    EXPECT_EQ(ReadBytes(file), ReadBytes(fixtures.File(row[5].substr(0, blank)))) << row.where;
  } else {
    const bool count = holds.find_first_not_of("0123456789") == std::string::npos;
    EXPECT_EQ(LiveRowsOf(file, count), holds) << row.where;
  }
}

#ifdef SCHEDULER_HAVE_SCLTOOL_QT
constexpr bool kHaveQtCompanion = true;
#else
constexpr bool kHaveQtCompanion = false;
#endif

// The runs of tests/data/cli/scltool-runs.txt.
TEST(Scltool, RunsGiveTheirStatusOutputAndFiles) {
  const std::vector<testing::CaseRow> rows = testing::ReadCases("cli/scltool-runs.txt", 6, 140);
  TempDir fixtures;
  WriteBytes(fixtures.File("bad.scl"), {'Q', '3', '9', 'E', 0, 0, 1, 0, 100, 0, 0, 0});
  WriteBytes(fixtures.File("text.scl"), {'D', 'a', 'y', ',', 'T', 'i', 't', 'l', 'e', '\n'});
  WriteBytes(fixtures.File("short.scl"), {'Q', '3', '9'});
  WriteBytes(fixtures.File("empty.scl"), {});
  for (const testing::CaseRow& row : rows) {
    if (row[0] != "make") continue;
    const auto [status, out] = Scltool(Arguments(row[2], fixtures.Path().string()), "make");
    EXPECT_EQ(status, row.Int(1)) << row.where << ": " << out;
  }

  std::unique_ptr<TempDir> folder;
  for (const testing::CaseRow& row : rows) {
    if (row[0] == "make") continue;
    std::string_view stream = row[0];
    if (stream.starts_with("qt:")) {
      if (!kHaveQtCompanion) continue;
      stream.remove_prefix(3);
    }
    const bool sameFolder = stream.starts_with('+');
    if (sameFolder) stream.remove_prefix(1);
    if (!sameFolder || !folder) {
      folder = std::make_unique<TempDir>();
      fs::copy(fixtures.Path(), folder->Path(), fs::copy_options::recursive);
    }
    const std::string dir = folder->Path().string();
    const auto [status, out] = Scltool(Arguments(row[2], dir), std::string(stream));
    EXPECT_EQ(status, row.Int(1)) << row.where << ": " << out;
    std::string expected = Replaced(testing::Unescaped(row[4]), "$DIR", dir);
    expected = Replaced(expected, "$VERSION", SCHEDULER_VERSION);
    if (row[3] == "file") {
      const std::vector<std::uint8_t> bytes = ReadBytes(SCHEDULER_TEST_DATA_DIR "/" + row[4]);
      EXPECT_FALSE(bytes.empty()) << row.where;
      EXPECT_EQ(out, std::string(bytes.begin(), bytes.end())) << row.where;
    } else if (row[3] == "starts") {
      EXPECT_TRUE(out.starts_with(expected)) << row.where << ": " << out;
    } else if (row[3] == "ends") {
      EXPECT_TRUE(out.ends_with(expected)) << row.where << ": " << out;
    } else if (row[3] == "has") {
      EXPECT_NE(out.find(expected), std::string::npos) << row.where << ": " << out;
    } else {
      EXPECT_EQ(row[3], "is") << row.where;
      EXPECT_EQ(out, expected) << row.where;
    }
    if (!row[5].empty()) CheckFile(row, dir, fixtures);
  }
}

}  // namespace
}  // namespace sched
