#pragma once

#include <string>

namespace sched {

// Per-user application settings: application, section, key -> text.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string GetSetting(const std::string& app, const std::string& section,
                                 const std::string& key, const std::string& fallback) = 0;
  virtual void SaveSetting(const std::string& app, const std::string& section,
                           const std::string& key, const std::string& value) = 0;
};

}  // namespace sched
