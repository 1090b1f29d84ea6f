#pragma once

#include <string>

namespace sched {

// The desktop's web browser, which shows the pages of the program's manual.
class HelpBrowser {
 public:
  virtual ~HelpBrowser() = default;
  // Shows `page` of the manual: a file name, with a "#part" after it for a place on the page.
  // False when the manual lacks the page or no browser took it.
  virtual bool ShowPage(const std::string& page) = 0;
};

}  // namespace sched
