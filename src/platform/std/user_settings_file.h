#pragma once

#include <map>
#include <string>

#include "platform/settings_store.h"

namespace sched {

// The per-user settings that the window keeps in its INI file, read without Qt by the programs
// that do not change them: groups and keys match without regard to case, and values are read
// as the window's settings library writes them (quoted or not, with their escapes).
class UserSettingsFile : public SettingsStore {
 public:
  // Reads the file at `path`; a file that is missing or cannot be read holds no settings.
  explicit UserSettingsFile(const std::string& path);
  // The window's file: $XDG_CONFIG_HOME, else ~/.config, then "/Sorvane/settings.ini".
  static std::string WindowSettingsPath();

  std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                         const std::string& fallback) override;
  // Kept for this run only: the file stays as the window wrote it.
  void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                   const std::string& value) override;

 private:
  std::map<std::string, std::string> values_;  // by folded "app\nsection\nkey"
};

}  // namespace sched
