#include "link/form_dip_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_settings_store.h"
#include "tests/support/message_lines.h"

namespace sched {
namespace {

struct Dialog {
  FakeSettingsStore settings;
  FakeMessages messages;
  std::size_t seen = 0;
  FormDipModel model{settings, messages, {"BELL", "SCHALARM"}, {2026, 11, 25}};
};

TEST(FormDipModel, OpensOnTodayAndAYearAndKeepsItsAnswers) {
  Dialog d;
  d.model.Form_Load();
  EXPECT_EQ(d.model.Controls().KikanDate[0], "2026/11/25");
  EXPECT_EQ(d.model.Controls().KikanDate[1], "2027/11/24");
  EXPECT_EQ(d.model.Controls().Sound, "SCHALARM");
  EXPECT_FALSE(d.model.Controls().KikanWeekEnabled || d.model.Controls().KikanDateEnabled);
  d.model.DIPType_Click(2);
  d.model.Kikan_Click(1);
  EXPECT_TRUE(d.model.Controls().KikanWeekEnabled);
  d.model.KikanWeek_Change(120);  // the box goes no higher than 99
  d.model.Sound_Change("BELL");
  ASSERT_TRUE(d.model.cmdEnd_OK());
  Dialog again;
  again.settings = d.settings;
  again.model.Form_Load();
  EXPECT_EQ(again.model.Answers().type, 2);
  EXPECT_EQ(again.model.Answers().kikan, 1);
  EXPECT_EQ(again.model.Answers().weeks, 99);
  EXPECT_EQ(again.model.Answers().sound, "BELL");
}

TEST(FormDipModel, AStartDateProposesItsEndAndBadDatesAreRefused) {
  struct Case {
    const char* start;
    const char* end;  // typed after the start; "" to keep what the start proposed
    const char* shownEnd;
    const char* refusal;  // "" when OK takes the answers
    DipFocus focus;
  };
  const Case cases[] = {
      {"2099/06/01", "", "2099/12/31", "", DipFocus::None},  // a year on, at most 2099/12/31
      {"2028/02/29", "", "2029/02/27", "", DipFocus::None},  // a year on is 2029/02/28
      {"2027/01/10", "2027/03/01", "2027/03/01", "", DipFocus::None},
      {"2027/05/10", "2027/03/01", "2027/03/01", "Specify the date.", DipFocus::StartDate},
      {"2027/05/10", "2027/02/30", "2027/02/30", "Specify the date.", DipFocus::EndDate},
      {"", "2027/03/01", "2027/03/01", "Specify the date.", DipFocus::StartDate},
  };
  for (const Case& c : cases) {
    Dialog d;
    d.model.Form_Load();
    d.model.Kikan_Click(2);
    d.model.KikanDate_Change(0, c.start);
    if (*c.end != 0) d.model.KikanDate_Change(1, c.end);
    EXPECT_EQ(d.model.Controls().KikanDate[1], c.shownEnd) << c.start;
    EXPECT_EQ(d.model.cmdEnd_OK(), *c.refusal == 0) << c.start;
    const std::string said = testing::NewMessageLines(d.messages, d.seen);
    EXPECT_EQ(said, *c.refusal == 0 ? "" : std::string("[Scheduler, Exclamation, Ok] ") + c.refusal)
        << c.start;
    EXPECT_EQ(d.model.Focus(), c.focus) << c.start;
  }
}

// The edit dialog's sound preview, as Listen reaches it.
struct RecordingPreview : SchEditMedia {
  bool output = true;
  std::vector<std::string> played;
  bool HasSoundOutput() override { return output; }
  void PreviewAlarmSound(const std::string& name) override { played.push_back(name); }
  std::optional<std::string> SelectWords(WordField, const std::string&, CodePage) override {
    return std::nullopt;
  }
};

TEST(FormDipModel, ListenPlaysTheSoundInTheComboWhenTheMachineCan) {
  for (const bool output : {true, false}) {
    Dialog d;
    RecordingPreview preview;
    preview.output = output;
    FormDipModel model{d.settings, d.messages, {"BELL", "SCHALARM"}, {2026, 11, 25}, &preview};
    model.Form_Load();
    model.Sound_Change("BELL");
    model.cbtSNDprev_Click();
    EXPECT_EQ(model.Controls().PreviewEnabled, output);
    EXPECT_EQ(preview.played,
              output ? std::vector<std::string>{"BELL"} : std::vector<std::string>{});
  }
  Dialog d;
  EXPECT_FALSE(d.model.Controls().PreviewEnabled);  // a model without a preview
}

}  // namespace
}  // namespace sched
