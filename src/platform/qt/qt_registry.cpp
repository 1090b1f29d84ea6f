#include "platform/qt/qt_registry.h"

#include "platform/qt/ini_groups.h"
#include "platform/registry_key.h"

namespace sched {
namespace {

// A key without values would not appear in the file: this entry keeps a made key there.
const QString kKeyMarker = QStringLiteral("(key)");
const QString kNumberPrefix = QStringLiteral("dword:");

}  // namespace

QtRegistry::QtRegistry() : QtRegistry(UserIniFile("registry")) {}

QtRegistry::QtRegistry(const QString& iniFile)
    : settings_(std::make_unique<QSettings>(iniFile, QSettings::IniFormat)) {}

bool QtRegistry::KeyExists(const std::string& key) {
  return IniGroups(*settings_).Find(RegistryKeyNames(key)).has_value();
}

bool QtRegistry::CreateKey(const std::string& key) {
  const std::vector<std::string> names = RegistryKeyNames(key);
  if (names.empty()) return false;
  if (KeyExists(key)) return true;
  settings_->setValue(IniGroups(*settings_).Resolve(names) + "/" + kKeyMarker, true);
  settings_->sync();
  return settings_->status() == QSettings::NoError;
}

std::optional<QString> QtRegistry::Read(const std::string& key, const std::string& name) {
  const IniGroups groups(*settings_);
  const std::optional<QString> group = groups.Find(RegistryKeyNames(key));
  if (!group) return std::nullopt;
  const std::optional<QString> stored = groups.FindKey(*group, name);
  if (!stored || *stored == kKeyMarker) return std::nullopt;
  return ValueText(settings_->value(*group + "/" + *stored));
}

std::optional<std::string> QtRegistry::ReadString(const std::string& key, const std::string& name) {
  const std::optional<QString> text = Read(key, name);
  if (!text || text->startsWith(kNumberPrefix)) return std::nullopt;
  return text->toStdString();
}

std::optional<std::uint32_t> QtRegistry::ReadNumber(const std::string& key,
                                                    const std::string& name) {
  const std::optional<QString> text = Read(key, name);
  if (!text || !text->startsWith(kNumberPrefix)) return std::nullopt;
  bool ok = false;
  const uint number = text->mid(kNumberPrefix.size()).toUInt(&ok, 16);
  if (!ok) return std::nullopt;
  return static_cast<std::uint32_t>(number);
}

bool QtRegistry::Write(const std::string& key, const std::string& name, const QString& text) {
  const std::vector<std::string> names = RegistryKeyNames(key);
  if (names.empty() || name.empty()) return false;
  const IniGroups groups(*settings_);
  const QString group = groups.Resolve(names);
  const QString stored = groups.FindKey(group, name).value_or(QString::fromStdString(name));
  settings_->setValue(group + "/" + stored, text);
  settings_->remove(group + "/" + kKeyMarker);  // the value keeps the key now
  settings_->sync();
  return settings_->status() == QSettings::NoError;
}

bool QtRegistry::WriteString(const std::string& key, const std::string& name,
                             const std::string& value) {
  return Write(key, name, QString::fromStdString(value));
}

bool QtRegistry::WriteNumber(const std::string& key, const std::string& name, std::uint32_t value) {
  return Write(key, name, kNumberPrefix + QStringLiteral("%1").arg(value, 8, 16, QLatin1Char('0')));
}

}  // namespace sched
