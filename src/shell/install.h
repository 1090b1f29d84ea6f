#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "shell/installer.h"

namespace sched {

// The user's data folder: $XDG_DATA_HOME, or ~/.local/share when it is unset or relative.
std::string UserDataHome(std::string_view xdgDataHome, std::string_view home);

// The folder of a new installation: $XDG_DATA_HOME (or ~/.local/share) + "/Sorvane/Tarvex".
// An unset or relative XDG_DATA_HOME is passed over.
std::string DefaultInstallDir(std::string_view xdgDataHome, std::string_view home);

// Makes sure the program finds a working installation. When no install folder is registered,
// or the registered one is gone, `defaultInstallDir` is laid out and registered: the country
// files of `dataDir`/pcapps, a sample schedule around `today` on the PC and on the device, the
// device's settings and melodies. What exists is kept: a user's file is never overwritten, a
// registered folder that exists stays registered, and a second run makes nothing. A registered
// folder other than the default one is the user's own and is left as it is.
// The data link's component is registered too, and a new registration sends every item on the
// first export: the mark of "Import exported data" is stored cleared.
InstallReport EnsureInstallation(Registry& registry, SettingsStore& settings,
                                 const std::string& dataDir, const std::string& defaultInstallDir,
                                 const CivilDate& today);

// Puts a link "MkSbjct" to the word list editor `editorProgram` into the installation's pcapps
// folder, where the scheduler starts it; an upgraded program is found through the same link.
// Whatever is there is kept, unless it is a link to a program that is gone.
void LinkWordListEditor(Installer& installer, const std::string& pcAppsDir,
                        const std::string& editorProgram);

}  // namespace sched
