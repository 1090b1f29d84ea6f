#include "platform/qt/qt_help_browser.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace sched {

bool QtHelpBrowser::ShowPage(const std::string& page) {
  const QString name = QString::fromStdString(page);
  const QString file = QString::fromStdString(manualDir_) + "/" + name.section('#', 0, 0);
  if (!QFileInfo(file).isFile()) return false;
  QUrl url = QUrl::fromLocalFile(file);
  if (name.contains('#')) url.setFragment(name.section('#', 1));
  return QDesktopServices::openUrl(url);
}

std::string ManualFolder(const std::string& installedData, const std::string& builtData) {
  const QString installed = QDir::cleanPath(QCoreApplication::applicationDirPath() + "/" +
                                            QString::fromStdString(installedData) + "/manual");
  return QFileInfo(installed + "/index.html").isFile() ? installed.toStdString()
                                                       : builtData + "/manual";
}

}  // namespace sched
