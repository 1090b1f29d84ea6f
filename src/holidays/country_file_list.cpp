#include "holidays/country_file_list.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/codepage.h"

namespace sched {
namespace {

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

bool IsCountryFileName(const std::string& name) {
  const std::string lower = Lower(name);
  return lower.size() >= 11 && lower.starts_with("holiday") && lower.ends_with(".ini");
}

}  // namespace

std::vector<std::string> ListCountryFiles(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    std::error_code typeError;
    if (!entry.is_regular_file(typeError)) continue;
    std::string name = entry.path().filename().string();
    if (IsCountryFileName(name)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string la = Lower(a);
    const std::string lb = Lower(b);
    return la != lb ? la < lb : a < b;
  });
  return names;
}

std::string ReadCountryTitle(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string title;
  for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) {
    if (*at == '\r' || *at == '\n') break;
    title += *at;
  }
  return Cp1252ToUtf8(title);
}

}  // namespace sched
