#pragma once

#include <string>

#include "core/app_texts.h"
#include "platform/messages.h"

namespace sched {

// The desktop's web browser, which shows the pages of the program's manual.
class HelpBrowser {
 public:
  virtual ~HelpBrowser() = default;
  // Shows `page` of the manual: a file name, with a "#part" after it for a place on the page.
  // False when the manual lacks the page or no browser took it.
  virtual bool ShowPage(const std::string& page) = 0;
};

// Shows the page; a page that cannot be shown is reported.
inline void ShowManualPage(HelpBrowser& browser, Messages& messages, const std::string& page) {
  if (browser.ShowPage(page)) return;
  messages.Show(
      {"The manual's page " + page + " could not be opened.\r\nIs a web browser installed?",
       kAppTitle});
}

}  // namespace sched
