#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"

namespace sched {

// A whole number in `base` from `low` to `high`; nothing for other text.
std::optional<int> ParseInt(const std::string& text, int base, int low, int high);
// A date "YYYY/MM/DD" of the calendar; nothing for other text.
std::optional<CivilDate> ParseDate(const std::string& text);

// The arguments of a command on a file: the file, then options, each at most once, a valued one
// followed by its value.
struct CommandOptions {
  std::string file;
  std::map<std::string, std::string> values;  // option name to value
  std::set<std::string> flags;

  const std::string* Value(const std::string& name) const;
  bool Flag(const std::string& name) const { return flags.count(name) != 0; }
  // The value as a date "YYYY/MM/DD"; nothing when it is missing or no date.
  std::optional<CivilDate> Date(const std::string& name) const;
};
// Nothing when the file is missing, or an option is unknown, repeated or without its value.
std::optional<CommandOptions> ParseOptions(const std::vector<std::string>& args,
                                           std::initializer_list<std::string_view> valued,
                                           std::initializer_list<std::string_view> flags);

}  // namespace sched
