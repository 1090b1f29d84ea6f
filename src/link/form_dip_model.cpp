#include "link/form_dip_model.h"

#include <algorithm>

#include "core/app_texts.h"
#include "store/sch_record.h"

namespace sched {
namespace {

constexpr const char* kSpecifyTheDate = "Specify the date.";

}  // namespace

FormDipModel::FormDipModel(SettingsStore& settings, Messages& messages,
                           std::vector<std::string> sounds, const CivilDate& today,
                           SchEditMedia* media)
    : settings_(settings), messages_(messages), media_(media), today_(today) {
  c_.SoundList = std::move(sounds);
  c_.PreviewEnabled = media_ != nullptr && media_->HasSoundOutput();
}

void FormDipModel::Form_Load() {
  const ImportOptions o = ReadImportOptions(settings_);
  c_.DIPType = o.type;
  c_.Kikan = o.kikan;
  c_.KikanWeek = o.weeks;
  const std::optional<CivilDate> start = ParseSlashedDate(o.start);
  c_.KikanDate[0] = SlashedDate(start.value_or(today_));
  const std::optional<CivilDate> end = ParseSlashedDate(o.end);
  c_.KikanDate[1] = SlashedDate(end.value_or(DefaultKikanEnd(start.value_or(today_))));
  c_.Sound = o.sound;
  cancelled_ = true;
  EnableControls();
}

void FormDipModel::EnableControls() {
  c_.KikanWeekEnabled = c_.Kikan == 1;
  c_.KikanDateEnabled = c_.Kikan == 2;
}

void FormDipModel::DIPType_Click(int index) {
  c_.DIPType = std::clamp(index, 0, 2);
}

void FormDipModel::Kikan_Click(int index) {
  c_.Kikan = std::clamp(index, 0, 2);
  EnableControls();
}

void FormDipModel::KikanWeek_Change(int weeks) {
  c_.KikanWeek = std::clamp(weeks, 1, 99);
}

void FormDipModel::KikanDate_Change(int index, const std::string& text) {
  c_.KikanDate[static_cast<std::size_t>(index != 0)] = text;
  if (index != 0) return;
  const std::optional<CivilDate> start = ParseSlashedDate(text);
  const std::optional<CivilDate> end = ParseSlashedDate(c_.KikanDate[1]);
  if (start && !(end && *end > *start)) c_.KikanDate[1] = SlashedDate(DefaultKikanEnd(*start));
}

void FormDipModel::Sound_Change(const std::string& name) {
  c_.Sound = name;
}

void FormDipModel::cbtSNDprev_Click() {
  if (c_.PreviewEnabled) media_->PreviewAlarmSound(c_.Sound);
}

bool FormDipModel::cmdEnd_OK() {
  if (c_.Kikan == 2) {
    const std::optional<CivilDate> start = ParseSlashedDate(c_.KikanDate[0]);
    const std::optional<CivilDate> end = ParseSlashedDate(c_.KikanDate[1]);
    if (!start || !end || *start > *end) {
      messages_.Show({kSpecifyTheDate, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
      focus_ = !start || (end && *start > *end) ? DipFocus::StartDate : DipFocus::EndDate;
      return false;
    }
  }
  SaveImportOptions(settings_, Answers());
  cancelled_ = false;
  return true;
}

ImportOptions FormDipModel::Answers() const {
  return {c_.DIPType,      c_.Kikan,
          c_.KikanWeek,    c_.KikanDate[0],
          c_.KikanDate[1], c_.Sound.empty() ? std::string(kDefaultAlarmSound) : c_.Sound};
}

}  // namespace sched
