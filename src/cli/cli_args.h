#pragma once

#include <climits>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"

namespace sched {

// Checks that `args` holds one argument for each of `required` and then all of `optional` or
// none of them; the UsageError names the first one missing or the first one too many.
void RequireArguments(const std::vector<std::string>& args,
                      std::initializer_list<std::string_view> required,
                      std::initializer_list<std::string_view> optional = {});
// The date "YYYY/MM/DD" of the calendar that `text` writes; a UsageError for other text.
CivilDate RequireDate(const std::string& text);
// The whole number that `text` writes, from `low` to `high`, given for `what` (an option or an
// argument's name); a UsageError for other text.
int RequireInt(std::string_view what, const std::string& text, int low = INT_MIN,
               int high = INT_MAX);

// The arguments of a verb on a file: the file, then options, each at most once, a valued one
// followed by its value.
struct CommandOptions {
  std::string file;
  std::map<std::string, std::string, std::less<>> values;  // option name to value
  std::set<std::string, std::less<>> flags;

  // The option's value; nullptr when it is not given.
  const std::string* Value(std::string_view name) const;
  bool Flag(std::string_view name) const { return flags.count(name) != 0; }
  // The value of an option that must be given; a UsageError when it is not.
  const std::string& Required(std::string_view name) const;
  // The value as a date; nothing when the option is not given, a UsageError when it is no date.
  std::optional<CivilDate> Date(std::string_view name) const;
  // The value as a whole number; nothing when the option is not given.
  std::optional<int> Int(std::string_view name, int low = INT_MIN, int high = INT_MAX) const;
  // A UsageError when `name` is given without `other`.
  void Needs(std::string_view name, std::string_view other) const;
  // A UsageError when both are given.
  void Excludes(std::string_view name, std::string_view other) const;
};
// The file and the options among `valued` and `flags`; a UsageError when the file is missing,
// or an option is unknown, given twice or without its value.
CommandOptions ParseOptions(const std::vector<std::string>& args,
                            std::initializer_list<std::string_view> valued,
                            std::initializer_list<std::string_view> flags = {});

// A verb's arguments "IN OUT [options]": OUT taken out, the rest parsed as on a file; the
// names are those of the verb's synopsis.
CommandOptions ParseInOut(const std::vector<std::string>& args, std::string_view inName,
                          std::string_view outName, std::initializer_list<std::string_view> valued,
                          std::initializer_list<std::string_view> flags, std::string& out);

}  // namespace sched
