#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/key_codes.h"

namespace sched::testing {

// The key a case file names: up, down, left, right, enter, escape, delete or f1; a single
// character is the key of that character.
inline int KeyNamed(const std::string& name) {
  static const std::map<std::string, int> kKeys = {
      {"up", kKeyUp},       {"down", kKeyDown},     {"left", kKeyLeft},     {"right", kKeyRight},
      {"enter", kKeyEnter}, {"escape", kKeyEscape}, {"delete", kKeyDelete}, {"f1", kKeyF1}};
  if (const auto key = kKeys.find(name); key != kKeys.end()) return key->second;
  if (name.size() != 1) ADD_FAILURE() << "no key " << name;
  return name.empty() ? 0 : name[0];
}

}  // namespace sched::testing
