#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "appointments/sch_edit_model.h"
#include "core/calendar.h"
#include "link/link_settings.h"
#include "platform/messages.h"
#include "platform/settings_store.h"

namespace sched {

// The controls of the import options that can take the focus after a refusal.
enum class DipFocus { None, StartDate, EndDate };

// What the import options show.
struct FormDipControls {
  int DIPType = 0;                       // 0 replace all, 1 add all, 2 add but the linked
  int Kikan = 0;                         // 0 all dates, 1 weeks from today, 2 the dates
  int KikanWeek = 1;                     // 1 to 99
  std::array<std::string, 2> KikanDate;  // start and end, "yyyy/mm/dd"
  std::string Sound;
  std::vector<std::string> SoundList;
  bool KikanWeekEnabled = false;
  bool KikanDateEnabled = false;
  bool PreviewEnabled = false;  // Listen, when the machine can play a sound
};

// "Import": how data that comes in over the data link is merged, over which dates, and the
// sound its alarms take. It reads and stores its answers in the per-user settings. Listen
// plays the sound as the edit dialog's Listen does; without `media` it stays disabled.
class FormDipModel {
 public:
  FormDipModel(SettingsStore& settings, Messages& messages, std::vector<std::string> sounds,
               const CivilDate& today, SchEditMedia* media = nullptr);

  void Form_Load();
  void DIPType_Click(int index);
  void Kikan_Click(int index);
  void KikanWeek_Change(int weeks);
  // A new start keeps a later end; else the end becomes a year after the start, less a day.
  void KikanDate_Change(int index, const std::string& text);
  void Sound_Change(const std::string& name);
  void cbtSNDprev_Click();
  // OK: true when the answers are taken and stored; false after "Specify the date.", with the
  // focus on the date at fault.
  bool cmdEnd_OK();
  void cmdEnd_Cancel() { cancelled_ = true; }

  const FormDipControls& Controls() const { return c_; }
  DipFocus Focus() const { return focus_; }
  bool Cancelled() const { return cancelled_; }
  // The answers as OK stored them.
  ImportOptions Answers() const;

 private:
  void EnableControls();

  SettingsStore& settings_;
  Messages& messages_;
  SchEditMedia* media_;
  CivilDate today_;
  FormDipControls c_;
  DipFocus focus_ = DipFocus::None;
  bool cancelled_ = true;
};

}  // namespace sched
