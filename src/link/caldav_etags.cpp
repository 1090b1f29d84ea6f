#include "link/caldav_etags.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/std/safe_file.h"
#include "platform/std/user_settings_file.h"

namespace sched {
namespace {

// A file a collection: its name from the URL's FNV-1a hash; its first line is the URL itself,
// so that two URLs of one hash never share ETags.
std::string FileOf(const std::string& folder, const std::string& url) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (unsigned char c : url) hash = (hash ^ c) * 1099511628211ULL;
  char name[40];
  std::snprintf(name, sizeof name, "caldav-%016llx.etags", static_cast<unsigned long long>(hash));
  return folder + "/" + name;
}

}  // namespace

std::string CalDavEtags::Folder() {
  return std::filesystem::path(UserSettingsFile::WindowSettingsPath()).parent_path().string() +
         "/caldav";
}

CalDavEtags::CalDavEtags(const std::string& folder, const std::string& url)
    : path_(FileOf(folder, url)), url_(url) {
  std::ifstream in(path_);
  std::string line;
  if (!std::getline(in, line) || line != url_) return;
  while (std::getline(in, line)) {
    const std::size_t tab = line.find('\t');
    if (tab != std::string::npos) etags_[line.substr(0, tab)] = line.substr(tab + 1);
  }
}

const std::string& CalDavEtags::Of(const std::string& uid) const {
  static const std::string kNone;
  const auto it = etags_.find(uid);
  return it == etags_.end() ? kNone : it->second;
}

void CalDavEtags::Set(const std::string& uid, const std::string& etag) {
  etags_[uid] = etag;
}

bool CalDavEtags::Save() const {
  std::ostringstream text;
  text << url_ << '\n';
  for (const auto& [uid, etag] : etags_) text << uid << '\t' << etag << '\n';
  const std::string bytes = text.str();
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
  return WriteFileSafely(path_,
                         {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

}  // namespace sched
