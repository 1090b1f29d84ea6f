#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "media/select_subject_model.h"
#include "media/word_list.h"
#include "media/word_list_editor_model.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_processes.h"
#include "tests/support/key_names.h"
#include "tests/support/message_lines.h"
#include "tests/support/temp_dir.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : "|") + word;
  return text;
}

std::string YesNo(bool on) {
  return on ? "yes" : "no";
}

// An installation's word list folder, and the steps that fill it, shared by both traces.
struct WordFolder {
  TempDir dir;
  CodePage page = CodePage::kWestern;
  FakeMessages messages;
  std::size_t seen = 0;

  WordFolder() { std::filesystem::create_directories(dir.File("userdata/ini")); }
  std::string Install() const { return dir.Path().string(); }
};

template <class State>
void AddFolderWords(testing::Trace<State>& t) {
  // file NAME BYTES: a list file of the folder.
  t.steps["file"] = [](State& s, const CaseRow& r) {
    s.dir.Write("userdata/ini/" + r[1], testing::Unescaped(r[2]));
  };
  // junk NAME SIZE: that many bytes of no meaning.
  t.steps["junk"] = [](State& s, const CaseRow& r) {
    std::mt19937 random(7);
    std::string bytes(static_cast<std::size_t>(r.Int(2)), '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    s.dir.Write("userdata/ini/" + r[1], bytes);
  };
  // words NAME A|B|...: a list file written as the editor writes it.
  t.steps["words"] = [](State& s, const CaseRow& r) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at <= r[2].size();) {
      const std::size_t bar = std::min(r[2].find('|', at), r[2].size());
      words.push_back(r[2].substr(at, bar - at));
      at = bar + 1;
    }
    const std::vector<std::uint8_t> bytes = WordListBytes(words, s.page);
    s.dir.Write("userdata/ini/" + r[1], std::string(bytes.begin(), bytes.end()));
  };
  t.steps["page"] = [](State& s, const CaseRow& r) {
    s.page = r[1] == "932" ? CodePage::kJapanese : CodePage::kWestern;
  };
  // is file:NAME: its size and its words.
  t.looks["file"] = [](State& s, const std::string& name) {
    const std::string path = s.dir.File("userdata/ini/" + name);
    if (!std::filesystem::exists(path)) return std::string("none");
    return std::to_string(std::filesystem::file_size(path)) + ": " +
           Joined(*LoadWordList(path, s.page));
  };
  // is bytes:NAME: the file's bytes, a byte of 0 as "." and others as they are.
  t.looks["bytes"] = [](State& s, const std::string& name) {
    const std::vector<std::uint8_t> raw = ReadBytes(s.dir.File("userdata/ini/" + name));
    std::string bytes(raw.begin(), raw.end());
    std::replace(bytes.begin(), bytes.end(), '\0', '.');
    return bytes;
  };
  testing::AddMessageWords(t);
}

struct SelectSubjectState : WordFolder {
  FakeProcesses processes;
  std::unique_ptr<SelectSubjectModel> model;
  SelectSubjectModel& M() { return *model; }
};
using SS = SelectSubjectState&;
using R = const CaseRow&;

testing::Trace<SelectSubjectState> SelectSubjectTrace() {
  testing::Trace<SelectSubjectState> t;
  AddFolderWords(t);
  t.steps["open"] = [](SS s, R r) {
    s.model = std::make_unique<SelectSubjectModel>(
        SelectSubjectServices{s.Install(), s.page, s.processes, s.messages});
    s.M().ParmText = r[1];
    s.M().SetEditString(r[2]);
    s.M().Form_Activate();
  };
  t.steps["click"] = [](SS s, R r) { s.M().TemplateList_Click(r.Int(1)); };
  t.steps["caret"] = [](SS s, R r) {
    s.M().EditString_Change(s.M().Controls().EditString, r.Int(1), r.Int(2));
  };
  t.steps["type"] = [](SS s, R r) { s.M().EditString_Change(r[1], r.Int(2), 0); };
  t.steps["paste"] = [](SS s, R) { s.M().PasteBtn_Click(); };
  t.steps["double-click"] = [](SS s, R) { s.M().TemplateList_DblClick(); };
  t.steps["key"] = [](SS s, R r) {
    EXPECT_EQ(YesNo(s.M().TemplateList_KeyPress(testing::KeyNamed(r[1]))), r[2]);
  };
  t.steps["ok"] = [](SS s, R) { s.M().OkBtn_Click(); };
  t.steps["cancel"] = [](SS s, R) { s.M().Cancel_Click(); };
  t.steps["edit"] = [](SS s, R r) {
    s.processes.starts = r[1] != "fails";
    s.M().KickCtrator_Click();
  };
  t.looks["title"] = [](SS s, auto&) { return s.M().Controls().FileName; };
  t.looks["words"] = [](SS s, auto&) { return Joined(s.M().Controls().TemplateList); };
  t.looks["count"] = [](SS s, auto&) {
    return std::to_string(s.M().Controls().TemplateList.size());
  };
  t.looks["selected"] = [](SS s, auto&) { return std::to_string(s.M().Controls().ListIndex); };
  t.looks["paste"] = [](SS s, auto&) { return YesNo(s.M().Controls().PasteBtnEnabled); };
  t.looks["text"] = [](SS s, auto&) { return s.M().Controls().EditString; };
  t.looks["caret"] = [](SS s, auto&) {
    return std::to_string(s.M().Controls().SelStart) + " " +
           std::to_string(s.M().Controls().SelLength);
  };
  t.looks["ret"] = [](SS s, auto&) { return s.M().RetText; };
  t.looks["started"] = [](SS s, auto&) {
    std::string lines;
    for (const std::string& line : s.processes.started) {
      lines += (lines.empty() ? "" : " | ") + line.substr(s.Install().size());
    }
    return lines;
  };
  return t;
}

TEST(SelectSubject, TheDialogAsAUserWorksIt) {
  SelectSubjectTrace().Run("media/select-subject.txt", 3, 60);
}

struct EditorState : WordFolder {
  std::unique_ptr<WordListEditorModel> model;
  WordListEditorModel& M() { return *model; }
};
using ES = EditorState&;

testing::Trace<EditorState> EditorTrace() {
  testing::Trace<EditorState> t;
  AddFolderWords(t);
  t.steps["start"] = [](ES s, R r) {
    s.model = std::make_unique<WordListEditorModel>(
        WordListEditorServices{s.Install(), s.page, s.messages});
    s.M().Form_Load(r[1].empty() ? std::vector<std::string>{} : std::vector{r[1]});
  };
  t.steps["list"] = [](ES s, R r) { EXPECT_EQ(YesNo(s.M().ListCombo_Click(r.Int(1))), r[2]); };
  t.steps["click"] = [](ES s, R r) { s.M().WordList_Click(r.Int(1)); };
  t.steps["type"] = [](ES s, R r) { s.M().WordText_Change(r[1]); };
  t.steps["add"] = [](ES s, R) { s.M().Add_Click(); };
  t.steps["change"] = [](ES s, R) { s.M().Change_Click(); };
  t.steps["remove"] = [](ES s, R) { s.M().Remove_Click(); };
  t.steps["up"] = [](ES s, R) { s.M().Up_Click(); };
  t.steps["down"] = [](ES s, R) { s.M().Down_Click(); };
  t.steps["save"] = [](ES s, R r) { EXPECT_EQ(YesNo(s.M().Save_Click()), r[1]); };
  t.steps["close"] = [](ES s, R r) { EXPECT_EQ(YesNo(s.M().Form_QueryUnload()), r[1]); };
  // block NAME: a folder where the list's file would go, so that it cannot be written.
  t.steps["block"] = [](ES s, R r) {
    std::filesystem::create_directories(s.dir.File("userdata/ini/" + r[1]));
  };
  t.looks["list"] = [](ES s, auto&) {
    const WordListEditorControls& c = s.M().Controls();
    return std::to_string(c.ListIndex) + " " + c.ListTitles[static_cast<std::size_t>(c.ListIndex)];
  };
  t.looks["words"] = [](ES s, auto&) { return Joined(s.M().Controls().Words); };
  t.looks["selected"] = [](ES s, auto&) {
    return std::to_string(s.M().Controls().WordIndex) + " " + s.M().Controls().WordText;
  };
  t.looks["enabled"] = [](ES s, auto&) {
    const WordListEditorControls& c = s.M().Controls();
    std::string on;
    const std::pair<bool, const char*> buttons[] = {
        {c.AddEnabled, "add"}, {c.ChangeEnabled, "change"}, {c.RemoveEnabled, "remove"},
        {c.UpEnabled, "up"},   {c.DownEnabled, "down"},     {c.SaveEnabled, "save"}};
    for (const auto& [enabled, name] : buttons) {
      if (enabled) on += (on.empty() ? "" : " ") + std::string(name);
    }
    return on;
  };
  return t;
}

TEST(WordListEditor, TheEditorAsAUserWorksIt) {
  EditorTrace().Run("media/word-list-editor.txt", 3, 50);
}

}  // namespace
}  // namespace sched
