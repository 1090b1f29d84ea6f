#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace sched {

struct InstallReport {
  std::string installDir;             // the install folder now registered
  std::vector<std::string> created;   // files, folders and registry values this run made
  std::vector<std::string> failures;  // what could not be made
};

// Makes folders and files where none are yet, and notes each in the report: what a user
// already has is never overwritten.
class Installer {
 public:
  explicit Installer(InstallReport& report) : report_(report) {}

  void MakeFolder(const std::filesystem::path& folder);
  void WriteNew(const std::filesystem::path& file, const std::vector<std::uint8_t>& bytes);
  void CopyNew(const std::filesystem::path& from, const std::filesystem::path& to);
  // Copies the files of a folder tree into `to`, making the folders on the way.
  void CopyTreeNew(const std::filesystem::path& from, const std::filesystem::path& to);
  // Notes a path as made, or as failed.
  void Note(const std::string& what, bool done);

 private:
  InstallReport& report_;
};

bool Exists(const std::filesystem::path& path);

}  // namespace sched
