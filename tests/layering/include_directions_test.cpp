#include "include_directions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace sched::layering {
namespace {

const std::filesystem::path kSourceDir = SCHEDULER_SOURCE_DIR;

std::string ReadText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

Directions TheDirections() {
  std::vector<std::string> errors;
  const Directions directions =
      ParseDirections(ReadText(kSourceDir / "docs/include-directions.md"), errors);
  for (const std::string& error : errors) ADD_FAILURE() << "docs/include-directions.md: " << error;
  return directions;
}

// Every header and source file under src/, as paths under src/, in a steady order.
std::vector<std::string> SourceFiles() {
  std::vector<std::string> files;
  const std::filesystem::path src = kSourceDir / "src";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
    const std::string extension = entry.path().extension().string();
    if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp")) {
      files.push_back(entry.path().lexically_relative(src).generic_string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST(IncludeDirections, TheTablePointsOneWayOnly) {
  for (const std::string& cycle : Cycles(TheDirections())) {
    ADD_FAILURE() << "folders include each other: " << cycle;
  }
}

TEST(IncludeDirections, EveryIncludeUnderSrcFollowsTheTable) {
  const Directions directions = TheDirections();
  const std::vector<std::string> files = SourceFiles();
  ASSERT_FALSE(files.empty()) << "no sources under " << (kSourceDir / "src");
  for (const std::string& file : files) {
    for (const std::string& breach :
         CheckFile(directions, file, ReadText(kSourceDir / "src" / file))) {
      ADD_FAILURE() << breach << "\n  (see docs/include-directions.md)";
    }
  }
}

}  // namespace
}  // namespace sched::layering
