#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace sched::layering {

// What one folder of src/ may include: the other folders, and whether Qt headers.
struct FolderRule {
  std::set<std::string> mayInclude;
  bool qt = false;
};

// Folder (as "store" or "platform/std") -> its rule.
using Directions = std::map<std::string, FolderRule>;

// Reads the table headed "| folder | may include | Qt |" from a Markdown text. Appends a line
// to `errors` for every row it cannot read, for every folder named without a row of its own, and
// one when there is no table.
Directions ParseDirections(std::string_view markdown, std::vector<std::string>& errors);

// The includes of one file that go against the directions, one line each as
// "src/<file>:<line>: ...". `file` is the path under src/.
std::vector<std::string> CheckFile(const Directions& directions, const std::string& file,
                                   std::string_view text);

// The rounds by which a folder may include itself through other folders, each written as
// "store -> platform -> store". None when the directions point one way only.
std::vector<std::string> Cycles(const Directions& directions);

}  // namespace sched::layering
