#pragma once

#include <string>

#include "commands/document_commands.h"
#include "commands/document_session.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_device_files.h"
#include "platform/fake/fake_file_dialogs.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_settings_store.h"
#include "tests/support/recording_document_view.h"
#include "tests/support/test_store.h"

namespace sched {

// A document session over a store, the real view models, a recording window, fakes and a
// temporary folder (with the device's System.ini at dir.File("System.ini")).
struct TestSession : WithTempDir {
  ScheduleDocument doc;
  RecordingAlarmHooks alarms;
  RecordingDocumentView window;
  FakeMessages messages;
  FakeProgress progress;
  FakeClock clock{{2026, 11, 21, 10, 0, 0}};
  FakeDeviceFiles device;
  FakeSettingsStore settings;
  FakeDateFormatter dates;
  NamedHolidays holidays;
  ScheduleStore store{doc, StoreServices{alarms, progress, clock}};
  CalendarViews views{ViewServices{doc, holidays, dates, clock, messages}};
  DocumentSession session{SessionServices{store, views, window, messages, progress, device,
                                          settings, clock, dir.File("System.ini")}};

  TestSession() { session.ResetToToday(true); }

  // A schedule file in the temporary folder with one item.
  std::string MakeFile(const std::string& name, const std::string& title) {
    FakeStore maker;
    maker.store.InsertRecord(MakeItem(2026, 11, 21, 540, 600, title));
    const std::string path = dir.File(name);
    return maker.store.SaveScheduleFile(path) ? path : "";
  }
};

// The document commands over a test session, with fake file dialogs; the device's cache is the
// folder "cache" of the temporary folder.
struct TestCommands : TestSession {
  FakeFileDialogs dialogs;
  RecordingNotices notices;
  AppState state;
  DocumentCommands commands{DocumentServices{session, window, notices, messages, dialogs, device,
                                             state, dir.File("cache"), session}};
};

}  // namespace sched
