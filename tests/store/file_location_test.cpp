#include "store/file_location.h"

#include <gtest/gtest.h>

#include "core/path_parts.h"

namespace sched {
namespace {

// The paths that the callers of SplitPath meet: files on the PC, the device's paths with '\',
// a bare name, a file in the root and a folder without a name. The safe write, the last folder
// of the open dialog and the cached device file take the folder (the safe write reads an empty
// one as the working folder); the caption takes the name.
TEST(SplitPath, CutsEveryCallersPathsAtTheLastSeparator) {
  const struct {
    const char* path;
    const char* folder;
    const char* name;
  } cases[] = {
      {"/home/ann/plan.scl", "/home/ann", "plan.scl"},
      {"plan.scl", "", "plan.scl"},
      {"/plan.scl", "/", "plan.scl"},
      {"/home/ann/", "/home/ann", ""},
      {"\\System\\sound\\BELL.snd", "\\System\\sound", "BELL.snd"},
      {"C:\\Tarvex\\PIM\\plan.scl", "C:\\Tarvex\\PIM", "plan.scl"},
      {"/cache/PIM\\plan.scl", "/cache/PIM", "plan.scl"},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(SplitPath(c.path).folder, c.folder);
    EXPECT_EQ(SplitPath(c.path).name, c.name);
    EXPECT_EQ(FormatLocation(c.path, 1), std::string("PC:") + c.name);
    EXPECT_EQ(FormatLocation(c.path, 0), std::string("Tarvex:") + c.name);
  }
}

}  // namespace
}  // namespace sched
