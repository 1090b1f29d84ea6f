#include "mksbjct/mk_sbjct.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QTest>
#include <filesystem>

#include "media/word_list.h"
#include "platform/fake/fake_help_browser.h"
#include "platform/fake/fake_messages.h"
#include "tests/gui/picture_path.h"
#include "tests/gui/widget_trace.h"

namespace sched {
namespace {

// The editor's window over an installation of its own, as the scheduler starts it.
struct Editor {
  TempDir dir;
  FakeMessages messages;
  FakeHelpBrowser help;
  std::unique_ptr<WordListEditorModel> model;
  std::unique_ptr<MkSbjct> window;

  std::string List() const { return dir.File("userdata/ini/SCHSBJC2.INI"); }
  void Open() {
    window.reset();
    model = std::make_unique<WordListEditorModel>(
        WordListEditorServices{dir.Path().string(), CodePage::kWestern, messages});
    model->Form_Load({"/F:Dayview"});
    window = std::make_unique<MkSbjct>(*model, help, messages);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }
  QWidget* Child(const char* name) const { return Named(window.get(), name); }
  std::string Words() const {
    auto* list = qobject_cast<QListWidget*>(Child("WordList"));
    std::string words;
    for (int i = 0; i < list->count(); ++i) {
      words += (i == 0 ? "" : "|") + list->item(i)->text().toStdString();
    }
    return words;
  }
  void Click(const char* name) { QTest::mouseClick(Child(name), Qt::LeftButton); }
  void Type(const std::string& text) {
    auto* line = qobject_cast<QLineEdit*>(Child("WordText"));
    line->selectAll();
    QTest::keyClicks(line, QString::fromStdString(text));
  }
};

TEST(MkSbjctWindow, AddsReordersSavesAndReopensAList) {
  Editor e;
  std::filesystem::create_directories(e.dir.File("userdata/ini"));
  ASSERT_TRUE(SaveWordList(e.List(), {"Meeting", "Call"}, CodePage::kWestern));
  e.Open();
  EXPECT_EQ(qobject_cast<QComboBox*>(e.Child("ListCombo"))->currentText(),
            "Word List of Scheduler(Title)");
  EXPECT_EQ(e.Words(), "Meeting|Call");
  e.Type("Gym");
  e.Click("Add");
  EXPECT_EQ(e.Words(), "Meeting|Gym|Call");
  e.Click("Up");
  EXPECT_EQ(e.Words(), "Gym|Meeting|Call");
  EXPECT_EQ(e.window->windowTitle(), "Word List Editor *");
  e.window->grab().save(PicturePath(e.dir, "MkSbjct.png"));
  e.Click("Save");
  EXPECT_EQ(e.window->windowTitle(), "Word List Editor");
  EXPECT_TRUE(e.window->close());
  EXPECT_TRUE(e.messages.Shown().empty());  // saved: no question on closing

  e.Open();
  EXPECT_EQ(e.Words(), "Gym|Meeting|Call");
}

TEST(MkSbjctWindow, F1ShowsTheEditorsPageOrSaysWhyNot) {
  Editor e;
  e.Open();
  QTest::keyClick(e.Child("WordList"), Qt::Key_F1);
  EXPECT_EQ(e.help.shown, std::vector<std::string>{"word-lists.html#editor"});
  EXPECT_TRUE(e.messages.Shown().empty());
  e.help.showable = false;
  QTest::keyClick(e.Child("WordText"), Qt::Key_F1);
  ASSERT_EQ(e.messages.Shown().size(), 1u);
  EXPECT_EQ(e.messages.Shown()[0].text,
            "The manual's page word-lists.html#editor could not be opened.\r\nIs a web browser "
            "installed?");
  EXPECT_EQ(e.messages.Shown()[0].title, "Scheduler");
}

}  // namespace
}  // namespace sched
