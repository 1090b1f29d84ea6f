#include "holidays/dlg_select_holiday_model.h"

#include <gtest/gtest.h>

#include "holidays/country_file_list.h"
#include "tests/support/case_file.h"
#include "tests/support/holiday_dialog_fakes.h"

namespace sched {
namespace {

using Calls = std::vector<std::string>;
using testing::CaseRow;
using testing::ReadCases;
using testing::Unescaped;

void WriteText(const std::string& path, const std::string& text) {
  WriteBytes(path, std::vector<std::uint8_t>(text.begin(), text.end()));
}

TEST(CountryFileList, ListsHolidayIniFilesInAnyCaseSortedAsAFileList) {
  TempDir dir;
  for (const char* name : {"holidayUS.ini", "HOLIDAYde.INI", "holiday.ini", "holidayJP.ini.bak",
                           "myholidayFR.ini", "holidayFR.txt", "readme.ini"}) {
    WriteText(dir.File(name), "x");
  }
  std::filesystem::create_directory(dir.Path() / "holidayDir.ini");
  EXPECT_EQ(ListCountryFiles(dir.Path().string()),
            (std::vector<std::string>{"holiday.ini", "HOLIDAYde.INI", "holidayUS.ini"}));
  EXPECT_TRUE(ListCountryFiles(dir.File("missing")).empty());
}

TEST(CountryFileList, ACountryFileNameFollowsThePatternHolidayStarIni) {
  for (const CaseRow& row : ReadCases("holidays/country-file-names.txt", 2, 12)) {
    EXPECT_EQ(IsCountryFileName(row[0]), row.YesNo(1)) << row.where;
  }
}

TEST(CountryFileList, TheTitleIsTheFirstLineUpToCrOrLf) {
  TempDir dir;
  for (const CaseRow& row : ReadCases("holidays/country-titles.txt", 2, 6)) {
    WriteText(dir.File("holidayXX.ini"), Unescaped(row[0]));
    EXPECT_EQ(ReadCountryTitle(dir.File("holidayXX.ini")), Unescaped(row[1])) << row.where;
  }
  WriteText(dir.File("empty.ini"), "");
  EXPECT_EQ(ReadCountryTitle(dir.File("empty.ini")), "");
  EXPECT_EQ(ReadCountryTitle(dir.File("gone.ini")), "");
}

TEST(ReadHolidayIni, AValueOfOneCharacterOrLessIsNone) {
  const struct {
    std::optional<std::string> value;
    std::string name;
  } cases[] = {{std::nullopt, ""},
               {"", ""},
               {"h", ""},
               {"holidayJP.ini", "holidayJP.ini"},
               {std::string("holidayJP.ini\0junk", 18), "holidayJP.ini"}};
  for (const auto& c : cases) {
    FakeRegistry registry;
    registry.CreateKey(kSchedulerKey);
    if (c.value) registry.WriteString(kSchedulerKey, kHolidayIniValue, *c.value);
    EXPECT_EQ(ReadHolidayIni(registry, kSchedulerKey), c.name);
  }
}

class DlgSelectHolidayModelTest : public ::testing::Test, public CountryFolder {
 protected:
  DlgSelectHolidayModelTest()
      : CountryFolder({"holidayJP.ini", "holidayUS.ini", "holidayDE.ini"}, "holidayUS.ini") {
    Write("holidayXX.ini", "Broken\nthis is no rule\n");
  }

  // Loads the dialog and selects the entry with the title.
  void Choose(const std::string& title) {
    ASSERT_TRUE(model.Form_Load());
    for (const CountryListItem& item : model.ListHolidayInfo()) {
      if (item.text == title) {
        model.SetListIndex(static_cast<int>(&item - model.ListHolidayInfo().data()));
        return;
      }
    }
    FAIL() << title;
  }

  DlgSelectHolidayModel model{Services(), named};
};

TEST_F(DlgSelectHolidayModelTest, LoadListsTheTitlesAndSelectsTheFileInUse) {
  ASSERT_TRUE(model.Form_Load());
  EXPECT_EQ(model.FListIniList(), (std::vector<std::string>{"holidayDE.ini", "holidayJP.ini",
                                                            "holidayUS.ini", "holidayXX.ini"}));
  std::vector<std::string> titles;
  for (const CountryListItem& item : model.ListHolidayInfo()) {
    EXPECT_EQ(model.Entries()[static_cast<std::size_t>(item.itemData)].title, item.text);
    titles.push_back(item.text);
  }
  EXPECT_EQ(titles, (std::vector<std::string>{"Germany", "Japan", "United States", "Broken"}));
  EXPECT_EQ(model.ListIndex(), 2);
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(DlgSelectHolidayModelTest, LoadSelectsNothingWhenTheFileInUseIsGoneOrUnset) {
  for (const char* value : {"holidayFR.ini", "", "x", "HOLIDAYUS.INI"}) {
    registry.WriteString(kSchedulerKey, kHolidayIniValue, value);
    ASSERT_TRUE(model.Form_Load());
    EXPECT_EQ(model.ListHolidayInfo().size(), 4u) << value;
    EXPECT_EQ(model.ListIndex(), -1) << value;
  }
}

TEST_F(DlgSelectHolidayModelTest, AnEmptyFolderGivesAnEmptyListAndOkChangesNothing) {
  std::filesystem::remove_all(pcapps);
  ASSERT_TRUE(model.Form_Load());
  EXPECT_TRUE(model.ListHolidayInfo().empty());
  EXPECT_EQ(model.ListIndex(), -1);
  model.SetListIndex(0);
  EXPECT_EQ(model.ListIndex(), -1);
  model.OKButton_Click();
  EXPECT_TRUE(calendar.calls.empty());
  EXPECT_EQ(named.HolidayReady, -1);
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_EQ(Named(2026, 7, 4), "Independence Day");
}

TEST_F(DlgSelectHolidayModelTest, WithoutTheProgramsKeyTheProgramEnds) {
  FakeRegistry empty;
  DlgSelectHolidayModel broken({empty, messages, device, calendar, host, pcapps}, named);
  EXPECT_FALSE(broken.Form_Load());
  ASSERT_EQ(messages.Shown().size(), 1u);
  EXPECT_EQ(messages.Shown()[0].text,
            "Directory does not exist.\r\nPlease install the PC Application again.");
  EXPECT_EQ(messages.Shown()[0].title, "Scheduler");
  EXPECT_EQ(messages.Shown()[0].icon, MsgIcon::Critical);
  EXPECT_EQ(messages.Shown()[0].buttons, MsgButtons::Ok);
  EXPECT_EQ(host.calls, Calls{"EndProgram"});
}

TEST_F(DlgSelectHolidayModelTest, OkOpensTheNewCountryRemembersItAndCopiesItOnYes) {
  const CalendarHandle former = named.HolidayHandle;
  Choose("Japan");
  messages.QueueAnswer(MsgAnswer::Yes);
  model.OKButton_Click();
  EXPECT_EQ(calendar.calls, (Calls{"End " + std::to_string(former), "Init holidayJP.ini 0"}));
  EXPECT_EQ(named.HolidayReady, -1);
  EXPECT_NE(named.HolidayHandle, 0u);
  EXPECT_EQ(Named(2026, 7, 4), "");
  EXPECT_NE(Named(2026, 11, 23), "");  // Labour Thanksgiving Day
  EXPECT_EQ(registry.ReadString("Software\\QTL\\Sorvane-e\\PC\\scl", "HolidayIni"),
            "holidayJP.ini");
  EXPECT_EQ(registry.ValueCount(), 1u);  // the same value, not one under a second key
  ASSERT_EQ(messages.Shown().size(), 1u);
  EXPECT_EQ(messages.Shown()[0].text, "Do you want to change holiday information on Tarvex?");
  EXPECT_EQ(messages.Shown()[0].title, "Scheduler");
  EXPECT_EQ(messages.Shown()[0].buttons, MsgButtons::YesNo);
  ASSERT_EQ(device.files.count("\\system\\ini\\holiday.ini"), 1u);
  EXPECT_EQ(device.files["\\system\\ini\\holiday.ini"], ShippedCountryFile("holidayJP.ini"));
}

TEST_F(DlgSelectHolidayModelTest, NoToTheQuestionChangesOnlyThePc) {
  Choose("Germany");
  messages.QueueAnswer(MsgAnswer::No);
  model.OKButton_Click();
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayDE.ini");
  EXPECT_EQ(named.HolidayReady, -1);
  EXPECT_EQ(Named(2026, 10, 3), "Tag der Deutschen Einheit");
  EXPECT_TRUE(device.files.empty());
}

TEST_F(DlgSelectHolidayModelTest, AFileThatDoesNotOpenLeavesNoNamedHolidays) {
  const struct {
    const char* what;
    bool remove;  // the file goes away after the list was made
  } cases[] = {{"invalid file", false}, {"file gone", true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Start("holidayUS.ini");
    Choose("Broken");
    if (c.remove) std::filesystem::remove(pcapps + "/holidayXX.ini");
    messages = FakeMessages();
    model.OKButton_Click();
    ASSERT_EQ(calendar.calls.size(), 2u);
    EXPECT_EQ(calendar.calls[1], "Init holidayXX.ini 1");
    ASSERT_EQ(messages.Shown().size(), 1u);
    EXPECT_EQ(messages.Shown()[0].text, "Not found or invalid format file \nNot setting holidays.");
    EXPECT_EQ(messages.Shown()[0].title, "Scheduler");
    EXPECT_EQ(messages.Shown()[0].buttons, MsgButtons::Ok);
    EXPECT_EQ(named.HolidayReady, 0);
    EXPECT_EQ(named.HolidayHandle, 0u);
    EXPECT_EQ(Named(2026, 7, 4), "");
    EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayUS.ini");
    EXPECT_TRUE(device.files.empty());
  }
}

TEST_F(DlgSelectHolidayModelTest, AfterAFailedChangeTheNextOneEndsNothing) {
  Choose("Broken");
  model.OKButton_Click();
  calendar.calls.clear();
  Choose("United States");
  messages.QueueAnswer(MsgAnswer::No);
  model.OKButton_Click();
  EXPECT_EQ(calendar.calls, Calls{"Init holidayUS.ini 0"});
  EXPECT_EQ(Named(2026, 7, 4), "Independence Day");
}

TEST_F(DlgSelectHolidayModelTest, CancelChangesNothing) {
  Choose("Japan");
  model.CancelButton_Click();
  EXPECT_TRUE(calendar.calls.empty());
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayUS.ini");
  EXPECT_EQ(Named(2026, 7, 4), "Independence Day");
}

}  // namespace
}  // namespace sched
