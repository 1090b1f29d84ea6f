#pragma once

#include <map>
#include <string>

#include "platform/registry_key.h"
#include "platform/settings_store.h"

namespace sched {

// Settings held in memory; application, section and key ignore case, as the system's store does.
class FakeSettingsStore : public SettingsStore {
 public:
  std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                         const std::string& fallback) override {
    const auto found = values_.find(Address(app, section, key));
    return found == values_.end() ? fallback : found->second;
  }

  void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                   const std::string& value) override {
    values_[Address(app, section, key)] = value;
  }

  bool Has(const std::string& app, const std::string& section, const std::string& key) const {
    return values_.count(Address(app, section, key)) > 0;
  }

 private:
  static std::string Address(const std::string& app, const std::string& section,
                             const std::string& key) {
    return FoldedName(app) + '\n' + FoldedName(section) + '\n' + FoldedName(key);
  }

  std::map<std::string, std::string> values_;
};

}  // namespace sched
