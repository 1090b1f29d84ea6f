#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "store/scl_format.h"
#include "tests/support/case_file.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

using testing::CaseRow;

// A link or number written once the whole file is laid out: its place and its value are
// expressions over the parts' names (see tests/data/store/damaged-files.txt).
struct Patch {
  std::string at;
  std::string value;
  int bytes;
};

// Lays out a file part by part as the steps of one case say, as the well-formed twin or as
// the damaged file: a "twin|damaged" word stands for either, and a step marked "!" belongs to
// the damaged file only.
class Layout {
 public:
  std::vector<std::uint8_t> Build(const std::vector<CaseRow>& steps, bool damaged) {
    WriteHeader(out_, SclHeader{});
    std::string cut;
    for (const CaseRow& step : steps) {
      std::vector<std::string> f;
      for (const std::string& field : step.fields) f.push_back(Pick(field, damaged));
      const bool onlyDamaged = f[0].starts_with('!');
      if (onlyDamaged && !damaged) continue;
      const std::string verb = f[0].substr(onlyDamaged ? 1 : 0);
      if (verb == "one") {
        // One item: record r, the month m with the item on its day, the year y.
        const CivilDate d = Dates(f[1]).first;
        const std::string head = f[4].empty() ? std::to_string(d.day) : f[4];
        AddRecord({"record", "r", f[1], f[2], f[3], "Item", ""});
        AddMonth("m", f[5].empty() ? std::to_string(d.month) : f[5], head + ":r", "", "");
        AddYear("y", f[6].empty() ? std::to_string(d.year) : f[6], "m", "");
        patches_.push_back({"8", "y", 4});
      } else if (verb == "hidden" || verb == "record") {
        AddRecord(f);
      } else if (verb == "month") {
        AddMonth(f[1], f[2], f[3], f[4], f[5]);
      } else if (verb == "year") {
        AddYear(f[1], f[2], f[3], f[4]);
      } else if (verb == "first") {
        patches_.push_back({"8", f[1], 4});
      } else if (verb == "link" || verb == "u16") {
        patches_.push_back({f[1], f[2], verb == "link" ? 4 : 2});
      } else if (verb == "cut") {
        cut = f[1];
      } else {
        ADD_FAILURE() << step.where << ": no step " << verb;
      }
    }
    for (const Patch& p : patches_) {
      ByteWriter bytes;
      if (p.bytes == 4) bytes.I32(Eval(p.value));
      if (p.bytes == 2) bytes.U16(static_cast<std::uint16_t>(Eval(p.value)));
      out_.Patch(Eval(p.at), bytes.Data());
    }
    std::vector<std::uint8_t> file = out_.Data();
    if (!cut.empty()) file.resize(std::min<std::size_t>(file.size(), Eval(cut)));
    return file;
  }

 private:
  static std::string Pick(const std::string& field, bool damaged) {
    std::istringstream words(field);
    std::string picked;
    for (std::string word; words >> word;) {
      const std::size_t bar = word.find('|');
      if (bar != std::string::npos) word = damaged ? word.substr(bar + 1) : word.substr(0, bar);
      picked += (picked.empty() ? "" : " ") + word;
    }
    return picked;
  }

  // "DATE" or "FIRST..LAST", any numbers, for a day the calendar lacks as well.
  static std::pair<CivilDate, CivilDate> Dates(const std::string& text) {
    CivilDate a, b;
    const int n = std::sscanf(text.c_str(), "%d-%d-%d..%d-%d-%d", &a.year, &a.month, &a.day,
                              &b.year, &b.month, &b.day);
    EXPECT_TRUE(n == 3 || n == 6) << text;
    return {a, n == 6 ? b : a};
  }

  // record NAME DATES START END [TITLE] [next=X kind=0xK sub=N parent=N memo=M alarm=SOUND:LEAD]
  // A title's "@NAME@" stands for the bytes of a hidden record, which the file does not lay.
  void AddRecord(const std::vector<std::string>& f) {
    const auto [first, last] = Dates(f[2]);
    SchRecord r = MakeItem(first.year, first.month, first.day, std::stoi(f[3]), std::stoi(f[4]),
                           f[5].empty() ? "Item" : f[5]);
    r.Stamp = static_cast<std::int32_t>(0xC2A40000u + static_cast<std::uint32_t>(first.day));
    SetEndDate(r, last);
    if (const std::size_t at = r.Title.find('@'); at != std::string::npos) {
      const std::string name = r.Title.substr(at + 1, r.Title.find('@', at + 1) - at - 1);
      r.Title.replace(at, name.size() + 2, hidden_.at(name));
    }
    std::istringstream attributes(f[6]);
    for (std::string a; attributes >> a;) {
      const std::string key = a.substr(0, a.find('=')), value = a.substr(a.find('=') + 1);
      if (key == "next") patches_.push_back({f[1] + ".next", value, 4});
      if (key == "kind") r.RepeatKind = static_cast<std::int16_t>(std::stoi(value, nullptr, 16));
      if (key == "sub") r.SubNo = static_cast<std::int16_t>(std::stoi(value));
      if (key == "parent") r.ParentSubNo = static_cast<std::int16_t>(std::stoi(value));
      if (key == "parent") r.ParentStamp = r.Stamp;
      if (key == "memo") r.Memo = value;
      if (key == "alarm") {
        r.AlarmOn = 1;
        r.AlarmSound = value.substr(0, value.find(':'));
        r.AlarmLead = static_cast<std::int16_t>(std::stoi(value.substr(value.find(':') + 1)));
      }
    }
    r.VarLen = static_cast<std::int16_t>(r.Title.size() + r.Place.size() + r.Memo.size() + 8 +
                                         (r.AlarmOn == 1 ? 10 : 0));
    if (f[0] == "hidden") {
      ByteWriter bytes;
      WriteRecord(bytes, r);
      hidden_[f[1]] = std::string(bytes.Data().begin(), bytes.Data().end());
      return;
    }
    parts_[f[1]] = out_.Position();
    records_[f[1]] = r;
    WriteRecord(out_, r);
  }

  // month NAME MONTH HEADS [MULTI] [NEXT], the heads as "DAY:RECORD,DAY:RECORD".
  void AddMonth(const std::string& name, const std::string& month, const std::string& heads,
                const std::string& multi, const std::string& next) {
    SclMonth m;
    m.Month = static_cast<std::uint16_t>(std::stoi(month));
    m.DayHead.fill(-1);
    m.MultiDayHead = -1;
    parts_[name] = out_.Position();
    WriteMonth(out_, m);
    std::istringstream list(heads == "-" ? "" : heads);
    for (std::string head; std::getline(list, head, ',');) {
      const std::string day = head.substr(0, head.find(':'));
      patches_.push_back({name + ".day" + day, head.substr(head.find(':') + 1), 4});
    }
    if (!multi.empty()) patches_.push_back({name + ".multi", multi, 4});
    if (!next.empty()) patches_.push_back({name + ".next", next, 4});
  }

  // year NAME YEAR FIRST-MONTH [NEXT]
  void AddYear(const std::string& name, const std::string& year, const std::string& first,
               const std::string& next) {
    SclYear y;
    y.Year = static_cast<std::uint16_t>(std::stoi(year));
    parts_[name] = out_.Position();
    WriteYear(out_, y);
    patches_.push_back({name + ".first", first, 4});
    if (!next.empty()) patches_.push_back({name + ".next", next, 4});
  }

 public:
  // A number, or "end", "PART" or "PART.FIELD", and then "+N" or "-N".
  std::int32_t Eval(const std::string& text) const {
    const std::size_t sign = text.find_first_of("+-", 1);
    const std::string base = text.substr(0, sign);
    const std::int32_t add = sign == std::string::npos ? 0 : std::stoi(text.substr(sign));
    if (base[0] == '-' || std::isdigit(static_cast<unsigned char>(base[0]))) {
      return static_cast<std::int32_t>(std::stoll(base, nullptr, 0)) + add;
    }
    if (base == "end") return out_.Position() + add;
    const std::string part = base.substr(0, base.find('.'));
    const std::string field =
        base.find('.') == std::string::npos ? "" : base.substr(part.size() + 1);
    if (!parts_.contains(part)) {
      ADD_FAILURE() << "no part " << part;
      return 0;
    }
    const std::int32_t at = parts_.at(part);
    const SchRecord* r = records_.contains(part) ? &records_.at(part) : nullptr;
    const auto size = [](const std::string& s) { return static_cast<std::int32_t>(s.size()); };
    std::int32_t offset = 0;
    if (field == "next") offset = r ? kRecordNextOffset : kYearNextOffset;  // a month's too
    if (field == "first") offset = 6;
    if (field == "multi") offset = 6 + 31 * 4;
    if (field.starts_with("day")) offset = 6 + 4 * (std::stoi(field.substr(3)) - 1);
    if (field == "title" && r) offset = kRecordFixedSize;
    if (field == "memo" && r) offset = kRecordFixedSize + 4 + size(r->Title) + size(r->Place);
    if (field == "alarm" && r) {
      offset = kRecordFixedSize + 6 + size(r->Title) + size(r->Place) + size(r->Memo);
    }
    return at + offset + add;
  }

 private:
  ByteWriter out_;
  std::map<std::string, std::int32_t> parts_;
  std::map<std::string, SchRecord> records_;
  std::map<std::string, std::string> hidden_;
  std::vector<Patch> patches_;
};

// The cases of tests/data/store/damaged-files.txt: name, rows of the twin, the reason of the
// refusal and where it was found, steps.
struct DamagedCase {
  std::string name;
  int twinRows = 0;
  std::string what;
  std::string at;
  std::vector<CaseRow> steps;
};

std::vector<DamagedCase> DamagedCases() {
  std::vector<DamagedCase> cases;
  for (const CaseRow& row : testing::ReadCases("store/damaged-files.txt", 7, 100)) {
    if (row[0] == "case") {
      if (row[3].empty() || row[4].empty()) ADD_FAILURE() << row.where << ": no reason or place";
      cases.push_back({row[1] + " (" + row.where + ")", row.Int(2), row[3], row[4], {}});
    } else if (cases.empty()) {
      ADD_FAILURE() << row.where << ": a step before the first case";
    } else {
      cases.back().steps.push_back(row);
    }
  }
  return cases;
}

// Everything a failed load must leave behind: an empty document, nothing changed.
void ExpectEmptyAfterFailure(const TestStore& s, bool loaded) {
  EXPECT_FALSE(loaded);
  EXPECT_EQ(s.doc.Tables.RowCount, 0);
  EXPECT_EQ(s.doc.Tables.YearCount, 0);
  EXPECT_EQ(s.doc.Tables.MonthCount, 0);
  EXPECT_TRUE(s.doc.Tables.SchDatList.IsEmpty());
  EXPECT_FALSE(s.doc.Dirty);
}

// Each damaged file is refused for its fault, found where the case says, as a PC file and as
// a device file, and leaves an empty document behind, though the document held something
// before. Its twin, which differs only in the fault, loads: the damaged file fails for its
// fault and not for the way the case lays it out.
TEST(DamagedFile, IsRefusedForItsFaultWhereItsTwinLoads) {
  for (const DamagedCase& c : DamagedCases()) {
    SCOPED_TRACE(c.name);
    for (int onPc : {1, 0}) {
      TestStore s;
      s.store.InsertRecord(MakeItem(2020, 5, 5, 600, 660, "Earlier"));
      s.doc.Dirty = true;
      s.doc.ScheduleOnPc = onPc;
      Layout damaged;
      WriteBytes(s.dir.File("damaged.scl"), damaged.Build(c.steps, true));
      const SclLoadResult result = s.store.LoadScheduleFile(s.dir.File("damaged.scl"));
      ExpectEmptyAfterFailure(s, static_cast<bool>(result));
      if (!result.error) continue;
      EXPECT_EQ(result.error->what, c.what);
      EXPECT_EQ(result.error->offset, damaged.Eval(c.at)) << c.at;
    }
    TestStore s;
    WriteBytes(s.dir.File("twin.scl"), Layout().Build(c.steps, false));
    EXPECT_TRUE(s.LoadFrom(s.dir.File("twin.scl")));
    EXPECT_EQ(s.doc.Tables.RowCount, c.twinRows);
  }
}

// Files that once broke the loader, kept as they were found.
TEST(KeptDamagedFiles, EachIsRefused) {
  const std::filesystem::path folder = SCHEDULER_TEST_DATA_DIR "/scl/damaged";
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  ASSERT_FALSE(files.empty()) << folder;
  for (const auto& file : files) {
    SCOPED_TRACE(file.filename().string());
    for (int onPc : {1, 0}) {
      TestStore s;
      ExpectEmptyAfterFailure(s, s.LoadFrom(file.string(), onPc));
    }
  }
}

}  // namespace
}  // namespace sched
