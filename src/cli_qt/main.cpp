// scltool-qt: prints a date range of a schedule file to a PDF file, without a window, and
// exchanges a schedule with a calendar server. scltool starts it for `scltool print`,
// `caldav-export` and `caldav-import`, so that scltool itself never loads Qt.
#include <QGuiApplication>
#include <QPrinter>
#include <iostream>
#include <string>
#include <vector>

#include "cli/cli_store.h"
#include "cli/print_arguments.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "cli_qt/caldav_verbs.h"
#include "platform/qt/qt_print_device.h"
#include "platform/std/console.h"
#include "platform/std/system_clock.h"
#include "printing/print_job.h"

namespace {

// No window shows how far the job is, and nothing cancels it.
class NoPrintingWindow : public sched::PrintingWindow {
 public:
  void Show(std::function<void()>) override {}
  void DoEvents(int, int) override {}
  void Close() override {}
};

int Print(std::vector<std::string> args) {
  const sched::CodePage page = sched::TakeCodePage(args);
  const sched::PrintArguments parsed = sched::ParsePrintArguments(args);
  sched::CliStore cli(std::cerr, page);
  if (!cli.Load(parsed.file)) return sched::kExitRefused;
  cli.Document().ScheduleFile = parsed.file;

  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(parsed.pdf));
  printer.setDocName("Scheduler");
  sched::QtPrintDevice device(printer);
  NoPrintingWindow window;
  sched::StreamMessages messages(std::cerr);
  const sched::IsoDateFormatter dates;
  const sched::SystemClock clock;
  const auto code = [](const sched::CivilDate& d) {
    return sched::DateCode(d.year, d.month, d.day);
  };
  const std::optional<sched::DocumentEnd> end =
      sched::PrintSchedule(cli.Document(), device, window, {messages, dates, clock},
                           code(parsed.from), code(parsed.to), parsed.copies);
  return end == sched::DocumentEnd::Printed ? sched::kExitDone : sched::kExitRefused;
}

// Qt's own notes about its set-up (a missing runtime folder, fonts) are no business of a
// script that reads the tool's standard error; only its failures are.
void QtFailuresOnly(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << message.toStdString() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  // Pages are drawn without a screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(QtFailuresOnly);
  QGuiApplication app(argc, argv);
  const std::vector<std::string> args(argv + 1, argv + argc);
  const std::vector<std::string> rest(args.begin() + (args.empty() ? 0 : 1), args.end());
  if (!args.empty() && args[0] == "caldav-export") return sched::RunCalDavExport(rest);
  if (!args.empty() && args[0] == "caldav-import") return sched::RunCalDavImport(rest);
  if (args.empty() || args[0] != "print") {
    std::cerr << "scltool-qt: scltool starts it for 'scltool print', 'caldav-export' and "
                 "'caldav-import'\n";
    return sched::kExitUsage;
  }
  try {
    return Print(rest);
  } catch (const sched::UsageError& error) {
    std::cerr << "scltool print: " << error.what() << "\nTry 'scltool help print'.\n";
    return sched::kExitUsage;
  }
}
