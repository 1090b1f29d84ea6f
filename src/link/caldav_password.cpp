#include "link/caldav_password.h"

namespace sched {

std::optional<std::string> CalDavPassword::Of(const std::string& account) {
  if (const auto it = session_.find(account); it != session_.end()) return it->second;
  if (!refused_[account]) {
    if (std::optional<std::string> kept = store_.ReadPassword(account)) {
      session_[account] = *kept;
      return kept;
    }
  }
  std::optional<std::string> given = ask_(account);
  if (!given) return std::nullopt;
  session_[account] = *given;
  refused_[account] = false;
  (void)store_.SavePassword(account, *given);
  return given;
}

void CalDavPassword::Refused(const std::string& account) {
  session_.erase(account);
  refused_[account] = true;
}

std::string AccountKey(const std::string& url, const std::string& user) {
  return user + " at " + url;
}

CalDavCollection::Summary TestConnection(HttpClient& http, CalDavPassword& password,
                                         const std::string& url, const std::string& user) {
  const std::string account = AccountKey(url, user);
  const std::optional<std::string> given = password.Of(account);
  if (!given) return {{CalDavProblem::kCancelled, "", ""}, "", 0};
  CalDavCollection::Summary found = CalDavCollection(http, {url, user, *given}).Probe(true);
  if (found.outcome.problem == CalDavProblem::kLoginRefused) password.Refused(account);
  return found;
}

}  // namespace sched
