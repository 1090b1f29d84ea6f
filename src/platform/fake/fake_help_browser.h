#pragma once

#include <string>
#include <vector>

#include "platform/help_browser.h"

namespace sched {

// Records the pages asked for, and shows them or not as a test says.
class FakeHelpBrowser : public HelpBrowser {
 public:
  std::vector<std::string> shown;
  bool showable = true;
  bool ShowPage(const std::string& page) override {
    shown.push_back(page);
    return showable;
  }
};

}  // namespace sched
