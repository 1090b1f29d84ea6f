#pragma once

#include <string>
#include <utility>

#include "platform/help_browser.h"

namespace sched {

// The manual's pages in the browser the desktop chose for web pages, from the manual's folder.
class QtHelpBrowser : public HelpBrowser {
 public:
  explicit QtHelpBrowser(std::string manualDir) : manualDir_(std::move(manualDir)) {}

  bool ShowPage(const std::string& page) override;

 private:
  std::string manualDir_;
};

// The manual of the data installed at `installedData` (a path from the program's folder), else
// the one in the data folder of the tree the program was built from.
std::string ManualFolder(const std::string& installedData, const std::string& builtData);

}  // namespace sched
