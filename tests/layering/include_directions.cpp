#include "include_directions.h"

#include <algorithm>
#include <optional>

#include "core/text_case.h"

namespace sched::layering {
namespace {

constexpr std::string_view kHeader = "| folder | may include | Qt |";

// A cell or line without its blanks, a CR of a line ending included.
std::string_view Trim(std::string_view text) {
  return sched::Trim(text, " \t\r");
}

// A name written as `name`, or nothing when the cell is not that.
std::optional<std::string> Quoted(std::string_view cell) {
  cell = Trim(cell);
  if (cell.size() < 3 || cell.front() != '`' || cell.back() != '`') return std::nullopt;
  return std::string(cell.substr(1, cell.size() - 2));
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const auto end = text.find(separator, start);
    parts.push_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

// Reads one row "| `folder` | `a`, `b` | yes |" into `directions`, or says what is wrong.
std::optional<std::string> ReadRow(std::string_view row, Directions& directions) {
  std::vector<std::string_view> cells = Split(Trim(row), '|');
  if (cells.size() != 5 || !Trim(cells.front()).empty() || !Trim(cells.back()).empty()) {
    return "a row needs three cells";
  }
  const std::optional<std::string> folder = Quoted(cells[1]);
  if (!folder) return "the folder is not written as `name`";
  FolderRule rule;
  if (Trim(cells[2]) != "nothing") {
    for (std::string_view item : Split(cells[2], ',')) {
      const std::optional<std::string> other = Quoted(item);
      if (!other) return "\"" + std::string(Trim(item)) + "\" is not written as `name`";
      rule.mayInclude.insert(*other);
    }
  }
  const std::string_view qt = Trim(cells[3]);
  if (qt != "yes" && qt != "no") return "the Qt cell is neither yes nor no";
  rule.qt = qt == "yes";
  if (!directions.emplace(*folder, rule).second) return "`" + *folder + "` has two rows";
  return std::nullopt;
}

struct Include {
  std::string path;
  bool angled = false;
};

// The header a line includes, when it is an #include line.
std::optional<Include> IncludeOn(std::string_view line) {
  line = Trim(line);
  if (line.empty() || line.front() != '#') return std::nullopt;
  line = Trim(line.substr(1));
  constexpr std::string_view kInclude = "include";
  if (!line.starts_with(kInclude)) return std::nullopt;
  line = Trim(line.substr(kInclude.size()));
  if (line.empty()) return std::nullopt;
  const char close = line.front() == '<' ? '>' : '"';
  if (line.front() != '<' && line.front() != '"') return std::nullopt;
  const auto end = line.find(close, 1);
  if (end == std::string_view::npos) return std::nullopt;
  return Include{std::string(line.substr(1, end - 1)), close == '>'};
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
  const std::vector<std::string_view> lines = Split(markdown, '\n');
  const auto header = std::find_if(lines.begin(), lines.end(),
                                   [](std::string_view line) { return Trim(line) == kHeader; });
  if (header == lines.end() || header + 1 == lines.end()) {
    errors.push_back("no table headed \"" + std::string(kHeader) + "\"");
    return directions;
  }
  for (auto line = header + 2; line != lines.end() && Trim(*line).starts_with('|'); ++line) {
    if (const std::optional<std::string> error = ReadRow(*line, directions)) {
      errors.push_back("line " + std::to_string(line - lines.begin() + 1) + ": " + *error);
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

std::string FolderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash));
}

std::vector<std::string> CheckFile(const Directions& directions, const std::string& file,
                                   std::string_view text) {
  const std::string folder = FolderOf(file);
  const auto rule = directions.find(folder);
  if (rule == directions.end()) {
    return {"src/" + file + ": the folder \"" + folder + "\" has no row in the table"};
  }
  std::vector<std::string> breaches;
  const std::vector<std::string_view> lines = Split(text, '\n');
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::optional<Include> include = IncludeOn(lines[i]);
    if (!include) continue;
    const std::string where = "src/" + file + ":" + std::to_string(i + 1) + ": ";
    const std::string quoted =
        include->angled ? "<" + include->path + ">" : "\"" + include->path + "\"";
    if (include->angled) {
      if (include->path.starts_with('Q') && !rule->second.qt) {
        breaches.push_back(where + folder + " may not include Qt (#include " + quoted + ")");
      }
      continue;
    }
    const std::string target = FolderOf(include->path);
    if (target.empty() || target == folder || rule->second.mayInclude.contains(target)) continue;
    breaches.push_back(where + folder + " may not include " + target + " (#include " + quoted +
                       ")");
  }
  return breaches;
}

std::vector<std::string> Cycles(const Directions& directions) {
  return CycleFinder(directions).Find();
}

}  // namespace sched::layering
