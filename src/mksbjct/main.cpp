// mksbjct: the editor of the Tarvex's word lists, started by the scheduler.
#include <QApplication>
#include <iostream>
#include <string>
#include <vector>

#include "media/word_list_editor_model.h"
#include "mksbjct/mk_sbjct.h"
#include "platform/qt/qt_help_browser.h"
#include "platform/qt/qt_messages.h"
#include "platform/qt/qt_registry.h"
#include "platform/qt/qt_settings_store.h"
#include "shell/paths.h"
#include "shell/settings.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Scheduler");
  QApplication::setOrganizationName("Sorvane");

  sched::QtRegistry registry;
  const std::optional<std::string> installDir = sched::ReadInstallDir(registry);
  if (!installDir) {
    std::cerr << "mksbjct: no installation is registered; start the scheduler once first\n";
    return 1;
  }
  sched::QtSettingsStore settings;
  sched::QtMessages messages;
  sched::WordListEditorModel model(
      sched::WordListEditorServices{*installDir, sched::ReadCodePage(settings), messages});
  model.Form_Load(std::vector<std::string>(argv + 1, argv + argc));
  sched::QtHelpBrowser help(sched::ManualFolder(SCHEDULER_INSTALLED_DATA, SCHEDULER_DATA_DIR));
  sched::MkSbjct window(model, help, messages);
  messages.SetParent(&window);
  window.show();
  return QApplication::exec();
}
