#pragma once

#include <filesystem>
#include <string>

namespace sched::testing {

// The named days of `year` under a country file made of a title line and `rules`, as
// "MM-DD name" items joined with ", ". Fails the test when the file does not parse.
std::string NamedDays(const std::string& rules, int year);

// A fresh folder under the system's temporary folder, removed with everything in it.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  // Writes `bytes` to the file `name` in the folder and returns its path.
  std::string Write(const std::string& name, const std::string& bytes) const;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The path of a shipped country file, e.g. ShippedFile("holidayJP.ini").
std::string ShippedFile(const std::string& name);

}  // namespace sched::testing
