#include "holidays/country_file_list.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "core/codepage.h"
#include "core/text_case.h"

namespace sched {

bool IsCountryFileName(std::string_view name) {
  constexpr std::string_view kHead = "holiday";
  constexpr std::string_view kTail = ".ini";
  return name.size() >= kHead.size() + kTail.size() &&
         EqualsIgnoringCase(name.substr(0, kHead.size()), kHead) &&
         EqualsIgnoringCase(name.substr(name.size() - kTail.size()), kTail);
}

std::vector<std::string> ListCountryFiles(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    std::error_code typeError;
    if (!entry.is_regular_file(typeError)) continue;
    std::string name = entry.path().filename().string();
    if (IsCountryFileName(name)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), LessIgnoringCase);
  return names;
}

std::string ReadCountryTitle(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string title;
  for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) {
    if (*at == '\r' || *at == '\n') break;
    title += *at;
  }
  return ToUtf8(title, CodePage::kWestern);
}

}  // namespace sched
