#include "include_directions.h"

#include <algorithm>
#include <regex>

namespace sched::layering {
namespace {

constexpr const char* kHeader = "| folder | may include | Qt |";
const std::regex kHeaderLine(R"(\s*\| folder \| may include \| Qt \|\s*)");
// A row: | `folder` | `other`, `another` (or nothing) | yes or no |
const std::regex kRow(
    R"(\s*\|\s*`([^`]+)`\s*\|\s*(nothing|`[^`]+`(\s*,\s*`[^`]+`)*)\s*\|\s*(yes|no)\s*\|\s*)");
const std::regex kQuoted("`([^`]+)`");
// An include line and what it names, written <path> or "path".
const std::regex kInclude(R"re(\s*#\s*include\s*(<([^>]+)>|"([^"]+)"))re");

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

bool IsTableLine(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first != std::string::npos && line[first] == '|';
}

// The folder of a path under src/: "platform/std/console.h" -> "platform/std".
std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

// A depth-first walk that reports each way back to a folder still on the path.
class CycleFinder {
 public:
  explicit CycleFinder(const Directions& directions) : directions_(directions) {}

  std::vector<std::string> Find() {
    for (const auto& entry : directions_) Visit(entry.first);
    return cycles_;
  }

 private:
  void Visit(const std::string& folder) {
    if (done_.contains(folder)) return;
    const auto onPath = std::find(path_.begin(), path_.end(), folder);
    if (onPath != path_.end()) {
      std::string round;
      for (auto step = onPath; step != path_.end(); ++step) round += *step + " -> ";
      cycles_.push_back(round + folder);
      return;
    }
    path_.push_back(folder);
    if (const auto rule = directions_.find(folder); rule != directions_.end()) {
      for (const std::string& next : rule->second.mayInclude) Visit(next);
    }
    path_.pop_back();
    done_.insert(folder);
  }

  const Directions& directions_;
  std::vector<std::string> path_;
  std::set<std::string> done_;
  std::vector<std::string> cycles_;
};

}  // namespace

Directions ParseDirections(std::string_view markdown, std::vector<std::string>& errors) {
  Directions directions;
  const std::vector<std::string> lines = Lines(markdown);
  const auto header = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
    return std::regex_match(line, kHeaderLine);
  });
  if (header == lines.end() || header + 1 == lines.end()) {
    errors.push_back("no table headed \"" + std::string(kHeader) + "\"");
    return directions;
  }
  for (auto line = header + 2; line != lines.end() && IsTableLine(*line); ++line) {
    const std::string at = "line " + std::to_string(line - lines.begin() + 1) + ": ";
    std::smatch row;
    if (!std::regex_match(*line, row, kRow)) {
      errors.push_back(at + "not a row | `folder` | `folder`, ... or nothing | yes or no |");
      continue;
    }
    FolderRule rule{{}, row[4] == "yes"};
    const std::string others = row[2];
    for (std::sregex_iterator it(others.begin(), others.end(), kQuoted), end; it != end; ++it) {
      rule.mayInclude.insert((*it)[1]);
    }
    if (!directions.emplace(row[1], rule).second) {
      errors.push_back(at + "`" + row[1].str() + "` has two rows");
    }
  }
  if (directions.empty()) errors.push_back("the table has no rows");
  for (const auto& [folder, rule] : directions) {
    for (const std::string& other : rule.mayInclude) {
      if (!directions.contains(other)) errors.push_back("`" + other + "` has no row of its own");
    }
  }
  return directions;
}

std::vector<std::string> CheckFile(const Directions& directions, const std::string& file,
                                   std::string_view text) {
  const std::string folder = FolderOf(file);
  const auto rule = directions.find(folder);
  if (rule == directions.end()) {
    return {"src/" + file + ": the folder \"" + folder + "\" has no row in the table"};
  }
  std::vector<std::string> breaches;
  const std::vector<std::string> lines = Lines(text);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch include;
    if (!std::regex_search(lines[i], include, kInclude, std::regex_constants::match_continuous)) {
      continue;
    }
    const std::string where = "src/" + file + ":" + std::to_string(i + 1) + ": " + folder;
    const std::string what = " (#include " + include[1].str() + ")";
    if (include[2].matched) {
      if (include[2].str().starts_with('Q') && !rule->second.qt) {
        breaches.push_back(where + " may not include Qt" + what);
      }
      continue;
    }
    const std::string target = FolderOf(include[3]);
    if (target.empty() || target == folder || rule->second.mayInclude.contains(target)) continue;
    breaches.push_back(where + " may not include " + target + what);
  }
  return breaches;
}

std::vector<std::string> Cycles(const Directions& directions) {
  return CycleFinder(directions).Find();
}

}  // namespace sched::layering
