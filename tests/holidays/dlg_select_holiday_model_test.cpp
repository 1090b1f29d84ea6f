#include "holidays/dlg_select_holiday_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "holidays/country_file_list.h"
#include "tests/support/case_file.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/message_lines.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using Calls = std::vector<std::string>;
using testing::CaseRow;
using testing::ReadCases;
using testing::Unescaped;

TEST(CountryFileList, ListsHolidayIniFilesInAnyCaseSortedAsAFileList) {
  TempDir dir;
  for (const char* name : {"holidayUS.ini", "HOLIDAYde.INI", "holiday.ini", "readme.ini"})
    dir.Write(name, "x");
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
    dir.Write("holidayXX.ini", Unescaped(row[0]));
    EXPECT_EQ(ReadCountryTitle(dir.File("holidayXX.ini")), Unescaped(row[1])) << row.where;
  }
  EXPECT_EQ(ReadCountryTitle(dir.Write("empty.ini", "")), "");
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

// The country dialog as tests/data/holidays/country-dialog.txt drives it.
struct Countries : CountryFolder {
  DlgSelectHolidayModel model{Services(), named};
  std::size_t seen = 0;

  Countries()
      : CountryFolder({"holidayJP.ini", "holidayUS.ini", "holidayDE.ini"}, "holidayUS.ini") {
    Write("holidayXX.ini", "Broken\nthis is no rule\n");
  }
};

using S = Countries&;
using R = const CaseRow&;

testing::Trace<Countries> CountryDialogTrace() {
  testing::Trace<Countries> t;
  testing::AddMessageWords(t);
  t.steps["load"] = [](S c, R r) { EXPECT_EQ(c.model.Form_Load(), r.YesNo(1)) << r.where; };
  // The dialog loaded, and the entry with the title selected.
  t.steps["choose"] = [](S c, R r) {
    ASSERT_TRUE(c.model.Form_Load());
    const auto& items = c.model.ListHolidayInfo();
    const auto item =
        std::find_if(items.begin(), items.end(), [&](auto& i) { return i.text == r[1]; });
    ASSERT_NE(item, items.end()) << r.where;
    c.model.SetListIndex(static_cast<int>(item - items.begin()));
  };
  t.steps["select"] = [](S c, R r) { c.model.SetListIndex(r.Int(1)); };
  t.steps["ok"] = [](S c, R) { c.model.OKButton_Click(); };
  t.steps["cancel"] = [](S c, R) { c.model.CancelButton_Click(); };
  t.steps["in-use"] = [](S c, R r) {
    c.registry.WriteString(kSchedulerKey, kHolidayIniValue, r[1]);
  };
  t.steps["remove"] = [](S c, R r) { std::filesystem::remove_all(c.pcapps + "/" + r[1]); };

  t.looks["files"] = [](S c, auto&) { return testing::Join(c.model.FListIniList(), ", "); };
  // The titles listed, each checked against the entry its item points to.
  t.looks["titles"] = [](S c, auto&) {
    return testing::Join(c.model.ListHolidayInfo(), " | ", [&](const CountryListItem& item) {
      EXPECT_EQ(c.model.Entries().at(static_cast<std::size_t>(item.itemData)).title, item.text);
      return item.text;
    });
  };
  t.looks["list-index"] = [](S c, auto&) { return std::to_string(c.model.ListIndex()); };
  t.looks["calendar-calls"] = [](S c, auto&) {
    return testing::Join(std::exchange(c.calendar.calls, {}));
  };
  // The country file in use: whether it is ready, whether a handle is open.
  t.looks["file-open"] = [](S c, auto&) {
    return std::to_string(c.named.HolidayReady) + (c.named.HolidayHandle != 0 ? " open" : " none");
  };
  t.looks["named"] = [](S c, auto& date) {
    const CivilDate d{std::stoi(date), std::stoi(date.substr(5)), std::stoi(date.substr(8))};
    return c.Named(d.year, d.month, d.day);
  };
  // The value in use, read under the key spelt in lower case; the registry's values.
  t.looks["in-use"] = [](S c, auto&) {
    return c.registry.ReadString("Software\\QTL\\Sorvane-e\\PC\\scl", "HolidayIni")
        .value_or("(none)");
  };
  t.looks["registry-values"] = [](S c, auto&) { return std::to_string(c.registry.ValueCount()); };
  // The device's holiday.ini: the shipped file it is, or "none".
  t.looks["on-device"] = [](S c, auto&) -> std::string {
    const auto file = c.device.files.find("\\system\\ini\\holiday.ini");
    if (file == c.device.files.end()) return "none";
    for (const char* name : {"holidayDE.ini", "holidayJP.ini", "holidayUS.ini"}) {
      if (file->second == ShippedCountryFile(name)) return name;
    }
    return "other";
  };
  return t;
}

TEST(DlgSelectHolidayModel, FollowsTheTraces) {
  CountryDialogTrace().Run("holidays/country-dialog.txt", 3, 50);
}

}  // namespace
}  // namespace sched
