#pragma once

#include <map>

#include "platform/secret_store.h"

namespace sched {

// A secret store in memory; with `present` false there is none, as on a desktop without a
// secret service.
class FakeSecretStore : public SecretStore {
 public:
  explicit FakeSecretStore(bool there = true) : present(there) {}
  bool present;
  std::map<std::string, std::string> kept;

  std::optional<std::string> ReadPassword(const std::string& account) override {
    const auto it = kept.find(account);
    if (!present || it == kept.end()) return std::nullopt;
    return it->second;
  }
  bool SavePassword(const std::string& account, const std::string& password) override {
    if (present) kept[account] = password;
    return present;
  }
};

}  // namespace sched
