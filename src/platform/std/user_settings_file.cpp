#include "platform/std/user_settings_file.h"

#include <cstdlib>
#include <fstream>

#include "core/number_text.h"
#include "platform/registry_key.h"

namespace sched {
namespace {

std::string Address(const std::string& app, const std::string& section, const std::string& key) {
  return FoldedName(app) + '\n' + FoldedName(section) + '\n' + FoldedName(key);
}

// A group or key name with its %XX escapes undone.
std::string UnescapedName(std::string_view text) {
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::optional<int> byte = text[i] == '%' && i + 2 < text.size()
                                        ? ParseInt(text.substr(i + 1, 2), 16, 0, 255)
                                        : std::nullopt;
    if (byte) {
      name += static_cast<char>(*byte);
      i += 2;
    } else {
      name += text[i];
    }
  }
  return name;
}

// A value as the settings library writes a text: in quotes when it needs them, with backslash
// escapes, and "@@" for a leading "@".
std::string UnescapedValue(std::string_view text) {
  std::string value;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      quoted = !quoted;
    } else if (c == '\\' && i + 1 < text.size()) {
      const char next = text[++i];
      value += next == 'n' ? '\n' : next == 'r' ? '\r' : next == 't' ? '\t' : next;
    } else if (quoted || (c != ' ' && c != '\t') || !value.empty()) {
      value += c;
    }
  }
  if (value.starts_with("@@")) value.erase(0, 1);
  return value;
}

}  // namespace

UserSettingsFile::UserSettingsFile(const std::string& path) {
  std::ifstream in(path);
  std::string app;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.starts_with('[') && line.ends_with(']')) {
      app = UnescapedName(std::string_view(line).substr(1, line.size() - 2));
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    const std::string name = UnescapedName(std::string_view(line).substr(0, equals));
    const std::size_t slash = name.find('\\');
    const std::string section = slash == std::string::npos ? "" : name.substr(0, slash);
    const std::string key = slash == std::string::npos ? name : name.substr(slash + 1);
    values_[Address(app, section, key)] = UnescapedValue(std::string_view(line).substr(equals + 1));
  }
}

std::string UserSettingsFile::WindowSettingsPath() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  const std::string folder = config != nullptr && *config != 0 ? config
                             : home != nullptr                 ? std::string(home) + "/.config"
                                                               : std::string(".config");
  return folder + "/Sorvane/settings.ini";
}

std::string UserSettingsFile::GetSetting(const std::string& app, const std::string& section,
                                         const std::string& key, const std::string& fallback) {
  const auto found = values_.find(Address(app, section, key));
  return found == values_.end() ? fallback : found->second;
}

void UserSettingsFile::SaveSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& value) {
  values_[Address(app, section, key)] = value;
}

}  // namespace sched
