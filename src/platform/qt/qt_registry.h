#pragma once

#include <QSettings>
#include <QString>
#include <memory>

#include "platform/registry.h"

namespace sched {

// The registry of the current user as an INI file, by default "Sorvane/registry.ini" in the
// user's config folder. A key is a group ("Software\QTL" is the group "Software/QTL"); key and
// value names ignore case. A number is stored as "dword:" and eight hex digits, so that it
// reads back as a number and a string never does.
class QtRegistry : public Registry {
 public:
  QtRegistry();
  explicit QtRegistry(const QString& iniFile);

  QString FileName() const { return settings_->fileName(); }

  bool KeyExists(const std::string& key) override;
  bool CreateKey(const std::string& key) override;
  std::optional<std::string> ReadString(const std::string& key, const std::string& name) override;
  std::optional<std::uint32_t> ReadNumber(const std::string& key, const std::string& name) override;
  bool WriteString(const std::string& key, const std::string& name,
                   const std::string& value) override;
  bool WriteNumber(const std::string& key, const std::string& name, std::uint32_t value) override;

 private:
  std::optional<QString> Read(const std::string& key, const std::string& name);
  bool Write(const std::string& key, const std::string& name, const QString& text);

  std::unique_ptr<QSettings> settings_;
};

}  // namespace sched
