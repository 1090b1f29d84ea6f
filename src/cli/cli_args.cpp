#include "cli/cli_args.h"

#include <algorithm>
#include <charconv>

namespace sched {

std::optional<int> ParseInt(const std::string& text, int base, int low, int high) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, value, base);
  if (text.empty() || ec != std::errc{} || ptr != end || value < low || value > high) {
    return std::nullopt;
  }
  return value;
}

std::optional<CivilDate> ParseDate(const std::string& text) {
  if (text.size() != 10 || text[4] != '/' || text[7] != '/') return std::nullopt;
  const auto year = ParseInt(text.substr(0, 4), 10, kFirstYear, kLastYear);
  const auto month = ParseInt(text.substr(5, 2), 10, 1, 12);
  const auto day = ParseInt(text.substr(8, 2), 10, 1, 31);
  if (!year || !month || !day || !IsValidDate(*year, *month, *day)) return std::nullopt;
  return CivilDate{*year, *month, *day};
}

const std::string* CommandOptions::Value(const std::string& name) const {
  const auto it = values.find(name);
  return it == values.end() ? nullptr : &it->second;
}

std::optional<CivilDate> CommandOptions::Date(const std::string& name) const {
  const std::string* text = Value(name);
  return text == nullptr ? std::nullopt : ParseDate(*text);
}

std::optional<CommandOptions> ParseOptions(const std::vector<std::string>& args,
                                           std::initializer_list<std::string_view> valued,
                                           std::initializer_list<std::string_view> flags) {
  const auto among = [](std::initializer_list<std::string_view> names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  if (args.empty() || args[0].rfind("--", 0) == 0) return std::nullopt;
  CommandOptions options;
  options.file = args[0];
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string& name = args[i];
    if (among(valued, name) && i + 1 < args.size() && options.values.count(name) == 0) {
      options.values[name] = args[++i];
    } else if (among(flags, name) && !options.Flag(name)) {
      options.flags.insert(name);
    } else {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace sched
