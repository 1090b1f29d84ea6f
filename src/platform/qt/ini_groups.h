#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

namespace sched {

// A settings file of the user's config folder: $XDG_CONFIG_HOME (or ~/.config) + "/Sorvane/" +
// the base name + ".ini".
QString UserIniFile(const QString& baseName);

// Groups and keys of an INI file looked up without regard to case: a name spelt exactly so
// wins, else the first that differs only in case. A name not found keeps the spelling given.
class IniGroups {
 public:
  explicit IniGroups(QSettings& settings) : settings_(settings) {}

  // The stored spelling of the group path; nothing when a group of it is missing.
  std::optional<QString> Find(const std::vector<std::string>& names) const;
  // The group path to write to: stored spellings where the groups exist, the given ones after.
  QString Resolve(const std::vector<std::string>& names) const;
  // The stored spelling of a key of the group; nothing when it has none of that name.
  std::optional<QString> FindKey(const QString& group, const std::string& name) const;

 private:
  std::optional<QString> Match(const QString& group, const QString& name, bool keys) const;

  QSettings& settings_;
};

// A stored value as text; a list, which an unquoted value with commas reads as, joined again.
QString ValueText(const QVariant& value);

}  // namespace sched
