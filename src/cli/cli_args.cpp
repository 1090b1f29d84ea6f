#include "cli/cli_args.h"

#include <algorithm>

#include "cli/verb.h"
#include "core/number_text.h"

namespace sched {

void RequireArguments(const std::vector<std::string>& args,
                      std::initializer_list<std::string_view> required,
                      std::initializer_list<std::string_view> optional) {
  const std::size_t least = required.size();
  const std::size_t most = least + optional.size();
  if (args.size() < least || (args.size() > least && args.size() < most)) {
    const std::size_t missing = args.size() < least ? args.size() : args.size() - least;
    const auto& names = args.size() < least ? required : optional;
    throw UsageError(std::string(names.begin()[missing]) + " is missing");
  }
  if (args.size() > most) throw UsageError("unexpected argument '" + args[most] + "'");
}

CivilDate RequireDate(const std::string& text) {
  const bool laidOut = text.size() == 10 && text[4] == '/' && text[7] == '/';
  const auto year = laidOut ? ParseInt(std::string_view(text).substr(0, 4), 10, 0) : std::nullopt;
  const auto month =
      laidOut ? ParseInt(std::string_view(text).substr(5, 2), 10, 1, 12) : std::nullopt;
  const auto day =
      laidOut ? ParseInt(std::string_view(text).substr(8, 2), 10, 1, 31) : std::nullopt;
  if (year && month && day && (*year < kFirstYear || *year > kLastYear)) {
    throw UsageError(text + " is outside " + std::to_string(kFirstYear) + "/01/01 to " +
                     std::to_string(kLastYear) + "/12/31");
  }
  if (!year || !month || !day || !IsValidDate(*year, *month, *day)) {
    throw UsageError(text + " is not a date");
  }
  return {*year, *month, *day};
}

int RequireInt(std::string_view what, const std::string& text, int low, int high) {
  if (const std::optional<int> value = ParseInt(text, 10, low, high)) return *value;
  std::string range;
  if (low != INT_MIN && high != INT_MAX) {
    range = " from " + std::to_string(low) + " to " + std::to_string(high);
  } else if (low != INT_MIN) {
    range = " of " + std::to_string(low) + " or more";
  }
  throw UsageError(std::string(what) + " takes a whole number" + range + ", not " + text);
}

const std::string* CommandOptions::Value(std::string_view name) const {
  const auto it = values.find(name);
  return it == values.end() ? nullptr : &it->second;
}

const std::string& CommandOptions::Required(std::string_view name) const {
  if (const std::string* value = Value(name)) return *value;
  throw UsageError(std::string(name) + " is missing");
}

std::optional<CivilDate> CommandOptions::Date(std::string_view name) const {
  const std::string* text = Value(name);
  if (text == nullptr) return std::nullopt;
  return RequireDate(*text);
}

std::optional<int> CommandOptions::Int(std::string_view name, int low, int high) const {
  const std::string* text = Value(name);
  if (text == nullptr) return std::nullopt;
  return RequireInt(name, *text, low, high);
}

void CommandOptions::Needs(std::string_view name, std::string_view other) const {
  const bool given = Value(name) != nullptr || Flag(name);
  if (given && Value(other) == nullptr && !Flag(other)) {
    throw UsageError(std::string(name) + " needs " + std::string(other));
  }
}

void CommandOptions::Excludes(std::string_view name, std::string_view other) const {
  const auto given = [this](std::string_view n) { return Value(n) != nullptr || Flag(n); };
  if (given(name) && given(other)) {
    throw UsageError(std::string(name) + " and " + std::string(other) + " exclude each other");
  }
}

CommandOptions ParseOptions(const std::vector<std::string>& args,
                            std::initializer_list<std::string_view> valued,
                            std::initializer_list<std::string_view> flags) {
  const auto among = [](std::initializer_list<std::string_view> names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  if (args.empty() || args[0].starts_with("--")) throw UsageError("FILE.scl is missing");
  CommandOptions options;
  options.file = args[0];
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string& name = args[i];
    if (options.Value(name) != nullptr || options.Flag(name)) {
      throw UsageError(name + " is given twice");
    }
    if (among(valued, name)) {
      if (i + 1 == args.size()) throw UsageError(name + " needs a value");
      options.values[name] = args[++i];
    } else if (among(flags, name)) {
      options.flags.insert(name);
    } else {
      throw UsageError((name.starts_with("-") ? "unknown option '" : "unexpected argument '") +
                       name + "'");
    }
  }
  return options;
}

CommandOptions ParseInOut(const std::vector<std::string>& args, std::string_view inName,
                          std::string_view outName, std::initializer_list<std::string_view> valued,
                          std::initializer_list<std::string_view> flags, std::string& out) {
  if (args.size() < 2 || args[1].starts_with("--")) {
    const std::vector<std::string> head(args.begin(), args.begin() + (args.empty() ? 0 : 1));
    RequireArguments(head, {inName, outName});
  }
  out = args[1];
  std::vector<std::string> rest = args;
  rest.erase(rest.begin() + 1);
  return ParseOptions(rest, valued, flags);
}

}  // namespace sched
