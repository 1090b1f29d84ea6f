#include "media/select_subject_model.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "core/app_texts.h"
#include "media/texts.h"
#include "media/word_list.h"
#include "platform/key_codes.h"

namespace sched {
namespace {

constexpr const char* kEditorPath = "/pcapps/MkSbjct";
constexpr const char* kEditorSwitch = "/F:";
constexpr const char* kApplicationKey = "Dayview";

std::optional<int> NumberOf(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// The characters of UTF-8 text, each as its bytes.
std::vector<std::string> Characters(const std::string& text) {
  std::vector<std::string> chars;
  for (const char c : text) {
    if (chars.empty() || (static_cast<unsigned char>(c) & 0xC0) != 0x80) chars.emplace_back();
    chars.back() += c;
  }
  return chars;
}

std::string Joined(const std::vector<std::string>& chars, std::size_t from, std::size_t to) {
  std::string text;
  for (std::size_t i = from; i < to; ++i) text += chars[i];
  return text;
}

}  // namespace

void SelectSubjectModel::SetEditString(const std::string& text) {
  c_.EditString = text;
  c_.SelStart = static_cast<int>(Characters(text).size());
  c_.SelLength = 0;
}

void SelectSubjectModel::Form_Activate() {
  const std::optional<int> number = NumberOf(ParmText);
  c_.FileName = number ? WordListTitle(*number) : "";
  c_.TemplateList.clear();
  if (number) {
    const std::string path = WordListPath(s_.installDir, *number);
    if (!path.empty()) {
      c_.TemplateList = LoadWordList(path, s_.page).value_or(std::vector<std::string>{});
    }
  }
  c_.PasteBtnEnabled = !c_.TemplateList.empty();
  c_.ListIndex = c_.PasteBtnEnabled ? 0 : -1;
  c_.TopIndex = 0;
}

void SelectSubjectModel::TemplateList_Click(int index) {
  if (index >= 0 && index < static_cast<int>(c_.TemplateList.size())) c_.ListIndex = index;
}

void SelectSubjectModel::EditString_Change(const std::string& text, int selStart, int selLength) {
  const int count = static_cast<int>(Characters(text).size());
  c_.EditString = text;
  c_.SelStart = std::clamp(selStart, 0, count);
  c_.SelLength = std::clamp(selLength, 0, count - c_.SelStart);
}

void SelectSubjectModel::PasteBtn_Click() {
  if (c_.ListIndex < 0) return;
  const std::vector<std::string> chars = Characters(c_.EditString);
  const auto start = static_cast<std::size_t>(c_.SelStart);
  const auto end = start + static_cast<std::size_t>(c_.SelLength);
  std::string word = c_.TemplateList[static_cast<std::size_t>(c_.ListIndex)];
  if (start > 0 && chars[start - 1] != " ") word = " " + word;
  c_.EditString = Joined(chars, 0, start) + word + Joined(chars, end, chars.size());
  c_.SelStart = static_cast<int>(start + Characters(word).size());
  c_.SelLength = 0;
}

bool SelectSubjectModel::TemplateList_KeyPress(int key) {
  if (key != kKeyEnter) return false;
  PasteBtn_Click();
  return true;
}

void SelectSubjectModel::KickCtrator_Click() {
  StartWordListEditor(s_.processes, s_.messages, s_.installDir);
}

void StartWordListEditor(Processes& processes, Messages& messages, const std::string& installDir) {
  const std::string program = installDir + kEditorPath;
  if (processes.Start(program, {std::string(kEditorSwitch) + kApplicationKey})) return;
  messages.Show({media_texts::kCannotRunEditor, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

}  // namespace sched
