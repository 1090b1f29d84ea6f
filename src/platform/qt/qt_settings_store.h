#pragma once

#include <QSettings>
#include <QString>
#include <memory>

#include "platform/settings_store.h"

namespace sched {

// Per-user settings as an INI file, by default "Sorvane/settings.ini" in the user's config
// folder: the group application/section holds the keys. Names ignore case.
class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();
  explicit QtSettingsStore(const QString& iniFile);

  QString FileName() const { return settings_->fileName(); }

  std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                         const std::string& fallback) override;
  void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                   const std::string& value) override;

 private:
  std::unique_ptr<QSettings> settings_;
};

}  // namespace sched
