#pragma once

#include <QDialog>
#include <string>

namespace sched {

// "About Scheduler": the versions of the programs and of Qt, the licence, and where the user's
// data lives: the installation folder and the settings folder.
class GlobalVersion : public QDialog {
 public:
  GlobalVersion(const std::string& installDir, QWidget* parent);
};

}  // namespace sched
