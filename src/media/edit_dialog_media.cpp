#include "media/edit_dialog_media.h"

#include "media/word_list.h"

namespace sched {

void EditDialogMedia::PreviewAlarmSound(const std::string& name) {
  sched::PreviewAlarmSound(s_.soundDir, name, s_.preview);
}

std::optional<std::string> EditDialogMedia::SelectWords(WordField field, const std::string& text,
                                                        CodePage page) {
  SelectSubjectModel model(
      SelectSubjectServices{s_.installDir, page, s_.processes, s_.preview.messages});
  model.ParmText = std::to_string(field == WordField::Place ? kPlaceWordList : kTitleWordList);
  model.SetEditString(text);
  s_.host.ShowSelectSubject(model);
  if (model.RetText != "1") return std::nullopt;
  return model.Controls().EditString;
}

}  // namespace sched
