#pragma once

#include <optional>
#include <string>

namespace sched {

// The desktop's store of secrets, for the password of a server account.
class SecretStore {
 public:
  virtual ~SecretStore() = default;
  // The password kept for the account; nothing when none is kept or there is no store.
  virtual std::optional<std::string> ReadPassword(const std::string& account) = 0;
  // Keeps the password; false when there is no store to keep it in.
  virtual bool SavePassword(const std::string& account, const std::string& password) = 0;
};

}  // namespace sched
