#include "platform/qt/qt_settings_store.h"

#include "platform/qt/ini_groups.h"

namespace sched {

QtSettingsStore::QtSettingsStore() : QtSettingsStore(UserIniFile("settings")) {}

QtSettingsStore::QtSettingsStore(const QString& iniFile)
    : settings_(std::make_unique<QSettings>(iniFile, QSettings::IniFormat)) {}

std::string QtSettingsStore::GetSetting(const std::string& app, const std::string& section,
                                        const std::string& key, const std::string& fallback) {
  const IniGroups groups(*settings_);
  const std::optional<QString> group = groups.Find({app, section});
  if (!group) return fallback;
  const std::optional<QString> stored = groups.FindKey(*group, key);
  if (!stored) return fallback;
  return ValueText(settings_->value(*group + "/" + *stored)).toStdString();
}

void QtSettingsStore::SaveSetting(const std::string& app, const std::string& section,
                                  const std::string& key, const std::string& value) {
  const IniGroups groups(*settings_);
  const QString group = groups.Resolve({app, section});
  const QString stored = groups.FindKey(group, key).value_or(QString::fromStdString(key));
  settings_->setValue(group + "/" + stored, QString::fromStdString(value));
  settings_->sync();
}

}  // namespace sched
