#include "media/word_list_editor_model.h"

#include <algorithm>
#include <utility>

#include "media/texts.h"
#include "media/word_list.h"

namespace sched {
namespace {

constexpr const char* kSchedulerKey = "/F:Dayview";

}  // namespace

WordListEditorModel::WordListEditorModel(WordListEditorServices services)
    : s_(std::move(services)) {
  for (const WordListEntry& entry : WordListTable()) c_.ListTitles.push_back(entry.title);
}

void WordListEditorModel::Form_Load(const std::vector<std::string>& args) {
  bool scheduler = false;
  for (const std::string& arg : args) scheduler = scheduler || arg == kSchedulerKey;
  Load(scheduler ? kTitleWordList : 0);
}

void WordListEditorModel::Load(int index) {
  c_.ListIndex = index;
  c_.Words = LoadWordList(WordListPath(s_.installDir, index), s_.page)
                 .value_or(std::vector<std::string>{});
  c_.Dirty = false;
  c_.WordText.clear();
  Select(c_.Words.empty() ? -1 : 0);
}

bool WordListEditorModel::ListCombo_Click(int index) {
  if (index == c_.ListIndex || index < 0 || index >= kWordListCount) return true;
  if (!LetGo()) return false;
  Load(index);
  return true;
}

void WordListEditorModel::WordList_Click(int index) {
  if (index >= 0 && index < static_cast<int>(c_.Words.size())) Select(index);
}

void WordListEditorModel::WordText_Change(const std::string& text) {
  c_.WordText = text;
  Enable();
}

void WordListEditorModel::Add_Click() {
  if (c_.WordText.empty() || !Fits(c_.WordText)) return;
  const int at = c_.WordIndex < 0 ? static_cast<int>(c_.Words.size()) : c_.WordIndex + 1;
  c_.Words.insert(c_.Words.begin() + at, c_.WordText);
  c_.Dirty = true;
  Select(at);
}

void WordListEditorModel::Change_Click() {
  if (c_.WordIndex < 0 || c_.WordText.empty() || !Fits(c_.WordText)) return;
  c_.Words[static_cast<std::size_t>(c_.WordIndex)] = c_.WordText;
  c_.Dirty = true;
  Enable();
}

void WordListEditorModel::Remove_Click() {
  if (c_.WordIndex < 0) return;
  c_.Words.erase(c_.Words.begin() + c_.WordIndex);
  c_.Dirty = true;
  Select(std::min(c_.WordIndex, static_cast<int>(c_.Words.size()) - 1));
}

void WordListEditorModel::Up_Click() {
  if (c_.WordIndex > 0) Swap(c_.WordIndex, c_.WordIndex - 1);
}

void WordListEditorModel::Down_Click() {
  if (c_.WordIndex >= 0 && c_.WordIndex + 1 < static_cast<int>(c_.Words.size())) {
    Swap(c_.WordIndex, c_.WordIndex + 1);
  }
}

void WordListEditorModel::Swap(int a, int b) {
  std::swap(c_.Words[static_cast<std::size_t>(a)], c_.Words[static_cast<std::size_t>(b)]);
  c_.Dirty = true;
  Select(b);
}

bool WordListEditorModel::Save_Click() {
  if (!SaveWordList(WordListPath(s_.installDir, c_.ListIndex), c_.Words, s_.page)) {
    s_.messages.Show({media_texts::kWriteError, media_texts::kEditorCaption});
    return false;
  }
  c_.Dirty = false;
  Enable();
  return true;
}

bool WordListEditorModel::Form_QueryUnload() {
  return LetGo();
}

bool WordListEditorModel::LetGo() {
  if (!c_.Dirty) return true;
  const MsgAnswer answer = s_.messages.Show({media_texts::kAskSaveList, media_texts::kEditorCaption,
                                             MsgIcon::Exclamation, MsgButtons::YesNoCancel});
  if (answer == MsgAnswer::Yes) return Save_Click();
  return answer == MsgAnswer::No;
}

bool WordListEditorModel::Fits(const std::string& word) {
  if (ByteLength(word, s_.page) <= kWordBytes) return true;
  s_.messages.Show({media_texts::kWordTooLong, media_texts::kEditorCaption});
  return false;
}

void WordListEditorModel::Select(int index) {
  c_.WordIndex = index;
  if (index >= 0) c_.WordText = c_.Words[static_cast<std::size_t>(index)];
  Enable();
}

void WordListEditorModel::Enable() {
  const int count = static_cast<int>(c_.Words.size());
  const bool selected = c_.WordIndex >= 0;
  c_.AddEnabled = !c_.WordText.empty();
  c_.ChangeEnabled = selected && !c_.WordText.empty();
  c_.RemoveEnabled = selected;
  c_.UpEnabled = c_.WordIndex > 0;
  c_.DownEnabled = selected && c_.WordIndex + 1 < count;
  c_.SaveEnabled = c_.Dirty;
}

}  // namespace sched
