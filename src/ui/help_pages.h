#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/help_browser.h"
#include "platform/messages.h"

class QWidget;

namespace sched {

// The manual's first page, which Help > Contents opens.
inline constexpr std::string_view kContentsPage = "index.html";

// The manual's page of a window, by the window's object name.
struct WindowHelpPage {
  std::string_view window;
  std::string_view page;
};
const std::vector<WindowHelpPage>& WindowHelpPages();
// The page of the window named so; empty for a window without one.
std::string_view HelpPageOf(std::string_view window);

// F1 anywhere in the program opens the page of the window or panel it was pressed in; a window
// without a page of its own (a message box) has the page of the window it belongs to. In the
// main window `mainWindowPage` gives the page of its shown tab, and may put other windows away.
class HelpKeys : public QObject {
 public:
  HelpKeys(HelpBrowser& browser, Messages& messages, QWidget* mainWindow,
           std::function<std::string()> mainWindowPage);

  // Shows the page; a page that cannot be shown is reported.
  void ShowPage(std::string_view page);
  // Shows the page of the window or panel that holds `widget`; the first page for none.
  void ShowPageOf(const QWidget* widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  HelpBrowser& browser_;
  Messages& messages_;
  const QWidget* mainWindow_;
  std::function<std::string()> mainWindowPage_;
};

}  // namespace sched
