// The manual as the program finds it: every page it opens, and every link and picture of the
// pages. SCHEDULER_MANUAL_DIR names an installed manual to look at instead of the shipped one.
#include <gtest/gtest.h>

#include <QtGlobal>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "ui/help_pages.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

fs::path ManualDir() {
  const QString installed = qEnvironmentVariable("SCHEDULER_MANUAL_DIR");
  return installed.isEmpty() ? fs::path(SCHEDULER_DATA_DIR) / "manual"
                             : fs::path(installed.toStdString());
}

std::string Text(const fs::path& file) {
  std::ifstream in(file);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// What is wrong with a link from the manual's folder, "page#part" or a picture; empty when the
// file is there and holds an element of the part's id.
std::string Broken(const std::string& link) {
  const std::string file = link.substr(0, link.find('#'));
  if (!fs::is_regular_file(ManualDir() / file)) return link + ": no such file";
  if (file == link) return "";
  const std::string id = "id=\"" + link.substr(link.find('#') + 1) + "\"";
  return Text(ManualDir() / file).find(id) == std::string::npos ? link + ": no " + id : "";
}

// The links (href) and pictures (src) of a page.
std::vector<std::string> Targets(const fs::path& page) {
  static const std::regex kTarget(R"re((href|src)="([^"]*)")re");
  const std::string text = Text(page);
  std::vector<std::string> targets;
  for (auto m = std::sregex_iterator(text.begin(), text.end(), kTarget);
       m != std::sregex_iterator(); ++m) {
    targets.push_back((*m)[2]);
  }
  return targets;
}

TEST(Manual, HasThePageOfEveryWindow) {
  EXPECT_EQ(Broken(std::string(kContentsPage)), "");
  for (const WindowHelpPage& entry : WindowHelpPages()) {
    EXPECT_EQ(Broken(std::string(entry.page)), "") << "the page of " << entry.window;
  }
}

// Every link and picture resolves, every page is reached from the first, and every picture is
// shown on a page.
TEST(Manual, PagesLinkOnlyToWhatIsThere) {
  std::set<std::string> reached{std::string(kContentsPage)};
  std::vector<std::string> next{std::string(kContentsPage)};
  std::set<std::string> shown;
  while (!next.empty()) {
    const std::string page = next.back();
    next.pop_back();
    for (const std::string& target : Targets(ManualDir() / page)) {
      if (target.starts_with("https://")) continue;
      const std::string link = target.starts_with("#") ? page + target : target;
      EXPECT_EQ(Broken(link), "") << "on " << page;
      const std::string file = link.substr(0, link.find('#'));
      if (file.ends_with(".png")) shown.insert(file);
      if (file.ends_with(".html") && reached.insert(file).second) next.push_back(file);
    }
  }
  for (const auto& entry : fs::directory_iterator(ManualDir())) {
    const std::string name = entry.path().filename().string();
    EXPECT_TRUE(!name.ends_with(".html") || reached.contains(name)) << name << " is not reached";
  }
  for (const auto& entry : fs::directory_iterator(ManualDir() / "pictures")) {
    const std::string name = "pictures/" + entry.path().filename().string();
    EXPECT_TRUE(shown.contains(name)) << name << " is shown on no page";
  }
}

}  // namespace
}  // namespace sched
