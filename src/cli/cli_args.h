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

// A command's file and options: `FILE --name value ... --flag ...`.
struct CliRequest {
  std::string file;
  std::map<std::string, std::string> values;  // option name to value
  std::set<std::string> flags;

  // The option's value; nothing when it was not given.
  const std::string* Value(const std::string& name) const {
    const auto it = values.find(name);
    return it == values.end() ? nullptr : &it->second;
  }
  bool Flag(const std::string& name) const { return flags.count(name) != 0; }
};

// Reads the file and the options: each option of `valued` takes the next argument, each of
// `flags` stands alone. Nothing when the file is missing, or an option is unknown, given twice
// or lacks its value.
std::optional<CliRequest> ParseRequest(const std::vector<std::string>& args,
                                       std::initializer_list<std::string_view> valued,
                                       std::initializer_list<std::string_view> flags);

}  // namespace sched
