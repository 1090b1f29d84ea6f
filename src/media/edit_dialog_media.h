#pragma once

#include <optional>
#include <string>

#include "appointments/sch_edit_model.h"
#include "media/select_subject_model.h"
#include "media/sound_preview.h"
#include "platform/processes.h"

namespace sched {

// Shows the word list dialog modally and returns when it has closed.
class SelectSubjectHost {
 public:
  virtual ~SelectSubjectHost() = default;
  virtual void ShowSelectSubject(SelectSubjectModel& model) = 0;
};

struct EditDialogMediaServices {
  SoundPreviewServices preview;
  Processes& processes;
  SelectSubjectHost& host;
  std::string installDir;
  std::string soundDir;  // the cached device's sound folder
};

// The Listen button and the word list buttons of the edit dialog.
class EditDialogMedia : public SchEditMedia {
 public:
  explicit EditDialogMedia(EditDialogMediaServices services) : s_(std::move(services)) {}

  bool HasSoundOutput() override { return s_.preview.player.HasOutput(); }
  void PreviewAlarmSound(const std::string& name) override;
  std::optional<std::string> SelectWords(WordField field, const std::string& text,
                                         CodePage page) override;

 private:
  EditDialogMediaServices s_;
};

}  // namespace sched
