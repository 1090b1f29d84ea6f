#pragma once

#include <string>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_progress.h"
#include "store/schedule_store.h"
#include "tests/support/recording_alarm_hooks.h"
#include "tests/support/temp_dir.h"

namespace sched {

// A schedule store over fakes, empty and ready.
struct FakeStore {
  ScheduleDocument doc;
  RecordingAlarmHooks alarms;
  FakeProgress progress;
  FakeClock clock;
  ScheduleStore store;

  FakeStore() : store(doc, StoreServices{alarms, progress, clock}) {
    store.ClearIndex();
    store.ResetHeader();
  }
};

struct WithTempDir {
  TempDir dir;
};

// A schedule store over fakes and a temporary folder, for tests.
struct TestStore : WithTempDir, FakeStore {
  // Saves to a file of the temporary folder and gives its bytes, none when the save failed.
  std::vector<std::uint8_t> SaveTo(const std::string& name) {
    doc.ScheduleFile = dir.File(name);
    if (!store.SaveScheduleFile(doc.ScheduleFile)) return {};
    return ReadBytes(doc.ScheduleFile);
  }

  // Loads a file, as a PC file unless told; false when it cannot be read.
  bool LoadFrom(const std::string& path, int onPc = 1) {
    doc.ScheduleFile = path;
    doc.ScheduleOnPc = onPc;
    return static_cast<bool>(store.LoadScheduleFile(path));
  }

  // Saves and loads back into this same store; false when either fails.
  bool RoundTrip(const std::string& name = "roundtrip.scl") {
    return !SaveTo(name).empty() && LoadFrom(dir.File(name));
  }
};

// The stamp MakeItem gives an item, worked out from its day, times and title alone, so that an
// item never depends on the items other tests made before it. Items alike in all four share it;
// a test that needs them apart sets its own stamps.
inline std::int32_t ItemStamp(int year, int month, int day, int start, int end,
                              const std::string& title) {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  const auto mix = [&hash](std::uint32_t byte) { hash = (hash ^ byte) * 16777619u; };
  for (int field : {year, month, day, start, end}) {
    for (int shift = 0; shift < 32; shift += 8) {
      mix((static_cast<std::uint32_t>(field) >> shift) & 0xFFu);
    }
  }
  for (char c : title) mix(static_cast<unsigned char>(c));
  return static_cast<std::int32_t>(0xC0000000u | (hash & 0x3FFFFFFFu));
}

// The live rows of the tables, in the order they were written.
// A row with copies of its texts.
struct RowWithTexts : SchDatRow {
  std::string Title, Place, Memo, AlarmSound;
};

inline std::vector<RowWithTexts> LiveRows(const SchDatCTL& tables) {
  std::vector<RowWithTexts> rows;
  for (int row = 0; row < tables.SchDatList.Rows(); ++row) {
    const SchDatRow& r = tables.SchDatList.At(row);
    if (!r.IsLive()) continue;
    const RowTexts texts = tables.SchDatList.Texts(r);
    rows.push_back({r, std::string(texts.Title), std::string(texts.Place), std::string(texts.Memo),
                    std::string(texts.AlarmSound)});
  }
  return rows;
}

// A plain timed item on one day.
inline SchRecord MakeItem(int year, int month, int day, int start, int end,
                          const std::string& title) {
  SchRecord r;
  r.Day = static_cast<std::uint8_t>(day);
  r.Month = static_cast<std::uint8_t>(month);
  r.Year = static_cast<std::uint16_t>(year);
  r.EndDay = r.Day;
  r.EndMonth = r.Month;
  r.EndYear = r.Year;
  r.StartTime = static_cast<std::int16_t>(start);
  r.EndTime = static_cast<std::int16_t>(end);
  r.Title = title;
  r.Stamp = ItemStamp(year, month, day, start, end, title);
  return r;
}

// A series as entered: the item's rows on `count` dates `step` days apart from its own date,
// SubNo rising from 1, the last date in every row, the item's Stamp as the series' stamp.
inline void InsertSeries(ScheduleStore& store, SchRecord item, int count, int step) {
  const CivilDate first{item.Year, item.Month, item.Day};
  const CivilDate last = AddDays(first, (count - 1) * step);
  SetEndDate(item, last);
  item.ParentSubNo = 1;
  item.ParentStamp = item.Stamp;
  for (int i = 0; i < count; ++i) {
    const CivilDate date = AddDays(first, i * step);
    SetStartDate(item, date);
    item.SubNo = static_cast<std::int16_t>(i + 1);
    store.InsertRecord(item);
  }
}

// A multi-day item as entered: a row for each day, SubNo rising, the span's end in every row.
inline void InsertSpan(ScheduleStore& store, CivilDate first, int days, const std::string& title,
                       std::int32_t stamp) {
  SchRecord r = MakeItem(first.year, first.month, first.day, -1, -1, title);
  r.Stamp = stamp;
  r.RepeatKind = kMultiDayKind;
  InsertSeries(store, r, days, 1);
}

}  // namespace sched
