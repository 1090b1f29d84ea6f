#include "ui/help_pages.h"

#include <QKeyEvent>
#include <QWidget>

namespace sched {

const std::vector<WindowHelpPage>& WindowHelpPages() {
  static const std::vector<WindowHelpPage> pages = {
      {"MonthTab", "main-window.html#month"},
      {"DayTab", "main-window.html#day"},
      {"FindPanel", "main-window.html#find"},
      {"SchEdit", "appointment.html"},
      {"Repeat", "repeat.html"},
      {"SchDT", "schedule-list.html"},
      {"SchWeekH", "holidays.html#week"},
      {"SchYearH", "holidays.html#day"},
      {"DlgSelectHoliday", "country.html"},
      {"FormCSV", "csv-settings.html"},
      {"SelectPrintDate", "printing.html"},
      {"DlgPrinting", "printing.html#printing"},
      {"PrintPreview", "printing.html#preview"},
      {"LinkSettings", "data-link.html#settings"},
      {"FormDIP", "data-link.html#import"},
      {"ServerPassword", "data-link.html#password"},
      {"SelectSubject", "word-lists.html"},
      {"Form1", "alarm-notice.html"},
      {"DisconnectionSetup", "task-device-cache.html#disconnection"},
      {"DeviceFileDialog", "task-device-cache.html#files"},
      {"GlobalVersion", "index.html"},
  };
  return pages;
}

std::string_view HelpPageOf(std::string_view window) {
  for (const WindowHelpPage& entry : WindowHelpPages()) {
    if (entry.window == window) return entry.page;
  }
  return {};
}

HelpKeys::HelpKeys(HelpBrowser& browser, Messages& messages, QWidget* mainWindow,
                   std::function<std::string()> mainWindowPage)
    : QObject(mainWindow),
      browser_(browser),
      messages_(messages),
      mainWindow_(mainWindow),
      mainWindowPage_(std::move(mainWindowPage)) {}

void HelpKeys::ShowPage(std::string_view page) {
  ShowManualPage(browser_, messages_, std::string(page));
}

void HelpKeys::ShowPageOf(const QWidget* widget) {
  std::string page(kContentsPage);
  if (widget != nullptr && widget->window() == mainWindow_) page = mainWindowPage_();
  // A dialog's parent is the window it belongs to.
  for (const QWidget* w = widget; w != nullptr; w = w->parentWidget()) {
    if (const std::string_view own = HelpPageOf(w->objectName().toStdString()); !own.empty()) {
      page = own;
      break;
    }
  }
  ShowPage(page);
}

bool HelpKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool shortcut = event->type() == QEvent::ShortcutOverride;
  if ((!shortcut && event->type() != QEvent::KeyPress) || !watched->isWidgetType()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
  // F1 is the help key of every window: it goes to no shortcut and no window's own keys.
  event->accept();
  if (!shortcut) ShowPageOf(static_cast<QWidget*>(watched));
  return true;
}

}  // namespace sched
