#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "link/caldav_collection.h"
#include "platform/http_client.h"
#include "platform/secret_store.h"

namespace sched {

// The password of a server account: the one given in this session, else the one the secret
// store keeps, else asked of the user, kept for the session and offered to the store. Without
// a secret store it is asked once per session.
class CalDavPassword {
 public:
  using Ask = std::function<std::optional<std::string>(const std::string& account)>;
  CalDavPassword(SecretStore& store, Ask ask) : store_(store), ask_(std::move(ask)) {}

  // Nothing when the user gave none.
  std::optional<std::string> Of(const std::string& account);
  // The server refused it: the next use asks again.
  void Refused(const std::string& account);

 private:
  SecretStore& store_;
  Ask ask_;
  std::map<std::string, std::string> session_;
  std::map<std::string, bool> refused_;
};

// The key of an account in the secret store.
std::string AccountKey(const std::string& url, const std::string& user);

// "Test Connection": what the calendar at the URL holds for the user, with the password of the
// account; a refused password is asked again the next time.
CalDavCollection::Summary TestConnection(HttpClient& http, CalDavPassword& password,
                                         const std::string& url, const std::string& user);

}  // namespace sched
