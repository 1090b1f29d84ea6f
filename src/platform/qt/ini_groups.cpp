#include "platform/qt/ini_groups.h"

namespace sched {

QString UserIniFile(const QString& baseName) {
  const QSettings probe(QSettings::IniFormat, QSettings::UserScope, "Sorvane", baseName);
  return probe.fileName();
}

std::optional<QString> IniGroups::Match(const QString& group, const QString& name,
                                        bool keys) const {
  if (!group.isEmpty()) settings_.beginGroup(group);
  const QStringList entries = keys ? settings_.childKeys() : settings_.childGroups();
  if (!group.isEmpty()) settings_.endGroup();
  std::optional<QString> found;
  for (const QString& entry : entries) {
    if (entry == name) return entry;
    if (!found && entry.compare(name, Qt::CaseInsensitive) == 0) found = entry;
  }
  return found;
}

std::optional<QString> IniGroups::Find(const std::vector<std::string>& names) const {
  QString path;
  for (const std::string& name : names) {
    const std::optional<QString> group = Match(path, QString::fromStdString(name), false);
    if (!group) return std::nullopt;
    path += (path.isEmpty() ? "" : "/") + *group;
  }
  return path;
}

QString IniGroups::Resolve(const std::vector<std::string>& names) const {
  QString path;
  bool stored = true;
  for (const std::string& name : names) {
    const QString given = QString::fromStdString(name);
    std::optional<QString> group;
    if (stored) group = Match(path, given, false);
    stored = group.has_value();
    path += (path.isEmpty() ? "" : "/") + group.value_or(given);
  }
  return path;
}

std::optional<QString> IniGroups::FindKey(const QString& group, const std::string& name) const {
  return Match(group, QString::fromStdString(name), true);
}

QString ValueText(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(',');
  return value.toString();
}

}  // namespace sched
