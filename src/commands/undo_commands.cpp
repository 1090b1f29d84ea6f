#include "commands/undo_commands.h"

namespace sched {
namespace {

std::string MenuText(const char* command, const std::string& step) {
  return step.empty() ? command : std::string(command) + " " + step;
}

}  // namespace

void BindUndoCommands(CommandSet& set, DocumentSession& session) {
  set.Bind(CommandId::Undo, [&session] {
    session.Store().Undo();
    session.ShowChange();
  });
  set.Bind(CommandId::Redo, [&session] {
    session.Store().Redo();
    session.ShowChange();
  });
}

std::string UndoMenuText(const UndoHistory& history) {
  return MenuText("&Undo", history.UndoName());
}

std::string RedoMenuText(const UndoHistory& history) {
  return MenuText("&Redo", history.RedoName());
}

}  // namespace sched
