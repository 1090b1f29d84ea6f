#include "platform/qt/qt_processes.h"

#include <QProcess>
#include <QStringList>

namespace sched {

bool QtProcesses::Start(const std::string& program, const std::vector<std::string>& args) {
  QStringList list;
  for (const std::string& arg : args) list << QString::fromStdString(arg);
  return QProcess::startDetached(QString::fromStdString(program), list);
}

}  // namespace sched
