#pragma once

#include "platform/secret_store.h"

namespace sched {

// Passwords in the desktop's secret service (or the system's keychain) through QtKeychain.
class QtSecretStore : public SecretStore {
 public:
  std::optional<std::string> ReadPassword(const std::string& account) override;
  bool SavePassword(const std::string& account, const std::string& password) override;
};

}  // namespace sched
