#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>

#include "platform/registry.h"
#include "platform/registry_key.h"

namespace sched {

// A registry held in memory, with the registry's rules: key and value names ignore case, a
// trailing backslash changes nothing, a value is either a string or a number.
class FakeRegistry : public Registry {
 public:
  bool failWrites = false;  // every write and every new key fails

  bool KeyExists(const std::string& key) override { return keys_.count(FoldedKey(key)) > 0; }

  bool CreateKey(const std::string& key) override {
    if (failWrites) return false;
    std::string path;
    for (const std::string& name : RegistryKeyNames(key)) {
      path += (path.empty() ? "" : "\\") + FoldedName(name);
      keys_.insert(path);
    }
    return true;
  }

  std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
    const Value* value = Find(key, name);
    if (value == nullptr || !std::holds_alternative<std::string>(*value)) return std::nullopt;
    return std::get<std::string>(*value);
  }

  std::optional<std::uint32_t> ReadNumber(const std::string& key,
                                          const std::string& name) override {
    const Value* value = Find(key, name);
    if (value == nullptr || !std::holds_alternative<std::uint32_t>(*value)) return std::nullopt;
    return std::get<std::uint32_t>(*value);
  }

  bool WriteString(const std::string& key, const std::string& name,
                   const std::string& value) override {
    return Write(key, name, value);
  }

  bool WriteNumber(const std::string& key, const std::string& name, std::uint32_t value) override {
    return Write(key, name, value);
  }

  // How many values all keys hold together.
  std::size_t ValueCount() const {
    std::size_t count = 0;
    for (const auto& [key, values] : values_) count += values.size();
    return count;
  }

 private:
  using Value = std::variant<std::string, std::uint32_t>;

  const Value* Find(const std::string& key, const std::string& name) const {
    const auto values = values_.find(FoldedKey(key));
    if (values == values_.end()) return nullptr;
    const auto value = values->second.find(FoldedName(name));
    return value == values->second.end() ? nullptr : &value->second;
  }

  bool Write(const std::string& key, const std::string& name, Value value) {
    if (!CreateKey(key)) return false;
    values_[FoldedKey(key)][FoldedName(name)] = std::move(value);
    return true;
  }

  std::set<std::string> keys_;
  std::map<std::string, std::map<std::string, Value>> values_;
};

}  // namespace sched
