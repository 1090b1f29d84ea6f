#include "cli/import_arguments.h"

#include "cli/verb.h"

namespace sched {
namespace {

constexpr int kMostTimeout = 3600;

void RequireWebAddress(const std::string& url) {
  if (!url.starts_with("https://") && !url.starts_with("http://")) {
    throw UsageError("URL must begin with https:// or http://");
  }
}

}  // namespace

ImportMerge MergeOfArguments(const CommandOptions& options) {
  const std::string* mode = options.Value("--mode");
  if (mode == nullptr || *mode == "add") return ImportMerge::kAddAll;
  if (*mode == "replace") return ImportMerge::kReplaceAll;
  if (*mode == "add-new") return ImportMerge::kReplaceLinked;
  throw UsageError("--mode takes replace, add or add-new");
}

ImportPeriod PeriodOfArguments(const CommandOptions& options, const CivilDate& today) {
  options.Excludes("--weeks", "--from");
  options.Needs("--from", "--to");
  options.Needs("--to", "--from");
  if (const std::optional<int> weeks = options.Int("--weeks", 1, 99)) {
    return {today, AddDays(today, 7 * *weeks - 1)};
  }
  return {options.Date("--from"), options.Date("--to")};
}

CalDavArguments ParseCalDavExport(const std::vector<std::string>& args) {
  CalDavArguments parsed;
  const CommandOptions options =
      ParseInOut(args, "IN.scl", "URL", {"--user", "--timeout"}, {}, parsed.url);
  parsed.file = options.file;
  parsed.user = options.Required("--user");
  parsed.timeoutSeconds = options.Int("--timeout", 1, kMostTimeout).value_or(60);
  RequireWebAddress(parsed.url);
  return parsed;
}

CalDavArguments ParseCalDavImport(const std::vector<std::string>& args, const CivilDate& today) {
  CalDavArguments parsed;
  const CommandOptions options =
      ParseInOut(args, "URL", "OUT.scl",
                 {"--user", "--timeout", "--mode", "--from", "--to", "--weeks"}, {}, parsed.file);
  parsed.url = options.file;
  parsed.user = options.Required("--user");
  parsed.timeoutSeconds = options.Int("--timeout", 1, kMostTimeout).value_or(60);
  parsed.merge = MergeOfArguments(options);
  parsed.period = PeriodOfArguments(options, today);
  RequireWebAddress(parsed.url);
  return parsed;
}

}  // namespace sched
