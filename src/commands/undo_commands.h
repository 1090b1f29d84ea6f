#pragma once

#include <string>

#include "commands/command_set.h"
#include "commands/document_session.h"

namespace sched {

// Edit › Undo and Redo: the store takes the last step back or makes it again, and the window,
// the schedule list and today's alarms show the document as it then stands.
void BindUndoCommands(CommandSet& set, DocumentSession& session);

// The menu entries' texts: "&Undo Delete this Year", or "&Undo" alone when there is nothing to
// undo; the same for Redo.
std::string UndoMenuText(const UndoHistory& history);
std::string RedoMenuText(const UndoHistory& history);

}  // namespace sched
