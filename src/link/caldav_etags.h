#pragma once

#include <map>
#include <string>

namespace sched {

// The ETags of the events the data link last put into one calendar collection, by UID, kept
// in a file of their own beside the settings: the next export puts an event only over the
// version it put itself.
class CalDavEtags {
 public:
  // The folder beside the user's settings where they are kept.
  static std::string Folder();

  // The ETags kept for the collection at `url` in `folder`; none when the file is missing.
  CalDavEtags(const std::string& folder, const std::string& url);

  const std::string& Of(const std::string& uid) const;
  void Set(const std::string& uid, const std::string& etag);
  // Writes them back; false when the file cannot be written.
  bool Save() const;

 private:
  std::string path_;
  std::string url_;
  std::map<std::string, std::string> etags_;
};

}  // namespace sched
