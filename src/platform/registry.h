#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sched {

// Values under keys of the current user, such as "Software\QTL\Sorvane-e\PC". Key paths are
// compared without regard to case and to a trailing backslash, as the registry does.
class Registry {
 public:
  virtual ~Registry() = default;
  virtual bool KeyExists(const std::string& key) = 0;
  // Creates the key (and its parents) when absent; false when it cannot be made.
  virtual bool CreateKey(const std::string& key) = 0;
  virtual std::optional<std::string> ReadString(const std::string& key,
                                                const std::string& name) = 0;
  virtual std::optional<std::uint32_t> ReadNumber(const std::string& key,
                                                  const std::string& name) = 0;
  virtual bool WriteString(const std::string& key, const std::string& name,
                           const std::string& value) = 0;
  virtual bool WriteNumber(const std::string& key, const std::string& name,
                           std::uint32_t value) = 0;
};

}  // namespace sched
