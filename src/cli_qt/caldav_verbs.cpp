#include "cli_qt/caldav_verbs.h"

#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "cli/cli_store.h"
#include "cli/import_arguments.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "link/caldav_etags.h"
#include "link/caldav_link_component.h"
#include "link/link_records.h"
#include "platform/qt/qt_http_client.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

constexpr const char* kPasswordVariable = "SCHEDULER_CALDAV_PASSWORD";

// The password from the environment, else asked on the terminal without echo; nothing when
// there is neither.
std::optional<std::string> AskPassword(const std::string& user, const std::string& url) {
  if (const char* given = std::getenv(kPasswordVariable)) return std::string(given);
  FILE* tty = std::fopen("/dev/tty", "r+");
  if (tty == nullptr) return std::nullopt;
  std::fprintf(tty, "Password for %s at %s: ", user.c_str(), url.c_str());
  std::fflush(tty);
  termios before{};
  const int fd = fileno(tty);
  const bool quiet = tcgetattr(fd, &before) == 0;
  if (quiet) {
    termios silent = before;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(fd, TCSAFLUSH, &silent);
  }
  std::string password;
  for (int c = std::fgetc(tty); c != EOF && c != '\n'; c = std::fgetc(tty)) {
    password += static_cast<char>(c);
  }
  if (quiet) tcsetattr(fd, TCSAFLUSH, &before);
  std::fprintf(tty, "\n");
  std::fclose(tty);
  return password;
}

struct Exchange {
  explicit Exchange(const CalDavArguments& a, CodePage page)
      : http(nullptr, {10000, a.timeoutSeconds * 1000}),
        messages(std::cerr),
        link({http, messages, clock, [a] { return a.url; }, [a] { return a.user; },
              [a] { return AskPassword(a.user, a.url); }, [] {}, [page] { return page; },
              [a] { return a.period; }, CalDavEtags::Folder()}) {}
  QtHttpClient http;
  StreamMessages messages;
  SystemClock clock;
  CalDavLinkComponent link;
};

int Usage(const char* verb, const UsageError& error) {
  std::cerr << "scltool " << verb << ": " << error.what() << "\nTry 'scltool help " << verb
            << "'.\n";
  return kExitUsage;
}

}  // namespace

int RunCalDavExport(std::vector<std::string> args) {
  try {
    const CodePage page = TakeCodePage(args);
    const CalDavArguments parsed = ParseCalDavExport(args);
    CliStore cli(std::cerr, page);
    if (!cli.Load(parsed.file)) return kExitRefused;
    Exchange exchange(parsed, page);
    const auto file = BuildExportFile(cli.Document().Tables, false, exchange.clock.Now(), page);
    if (!file) {
      std::cerr << "No export data!\n";
      return kExitRefused;
    }
    if (exchange.link.Export(*file)) return kExitDone;
    std::cerr << "Export failure!\n";
    return kExitRefused;
  } catch (const UsageError& error) {
    return Usage("caldav-export", error);
  }
}

int RunCalDavImport(std::vector<std::string> args) {
  try {
    const CodePage page = TakeCodePage(args);
    const DateTime now = SystemClock().Now();
    const CalDavArguments parsed = ParseCalDavImport(args, {now.year, now.month, now.day});
    CliStore cli(std::cerr, page);
    if (std::filesystem::exists(parsed.file) && !cli.Load(parsed.file)) return kExitRefused;
    Exchange exchange(parsed, page);
    const std::optional<std::vector<std::uint8_t>> file = exchange.link.Import();
    if (!file) {
      std::cerr << "Import failure!\n";
      return kExitRefused;
    }
    MergeImportedRecords(cli.Store(), ReadImportRecords(*file, page).records, parsed.merge,
                         parsed.period, kDefaultAlarmSound);
    return cli.Save(parsed.file) ? kExitDone : kExitRefused;
  } catch (const UsageError& error) {
    return Usage("caldav-import", error);
  }
}

}  // namespace sched
