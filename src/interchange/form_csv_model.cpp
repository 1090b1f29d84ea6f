#include "interchange/form_csv_model.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include "core/app_texts.h"
#include "interchange/csv_fields.h"
#include "interchange/csv_file_check.h"
#include "interchange/csv_reader.h"
#include "interchange/texts.h"
#include "shell/settings.h"

namespace sched {
namespace {

constexpr int kFirstInterval = 500;
constexpr int kRepeatInterval = 50;

// The row of FieldList of that name; nothing for a name that is no field.
std::optional<CsvListEntry> EntryOf(std::string_view name) {
  for (int f = 0; f < kCsvFieldCount; ++f) {
    if (CsvFieldNames[f] == name) return CsvListEntry{std::string(name), f};
  }
  if (name == kCsvNotUsed) return CsvListEntry{std::string(kCsvNotUsed), -1};
  return std::nullopt;
}

// The index a list of `size` rows takes for `index`: its last row when beyond the end.
int Clamp(int index, std::size_t size) {
  if (size == 0) return -1;
  return std::min(index, static_cast<int>(size) - 1);
}

}  // namespace

FormCsvModel::FormCsvModel(FormCsvServices services) : s_(std::move(services)) {
  s_.Timer1.OnTick([this] { Timer1_Timer(); });
}

void FormCsvModel::Form_Load() {
  c_ = FormCsvControls{};
  for (int f = 0; f < kCsvFieldCount; ++f) {
    c_.FieldList.push_back({std::string(CsvFieldNames[f]), f});
  }
  c_.FieldList.push_back({std::string(kCsvNotUsed), -1});
  CsvSettings csv = LoadCsvSettings(s_.settings, kSettingsApp);
  EnsureDefaultCsvColumns(csv.CsvColumns);
  SetColumns(csv.CsvColumns);
  c_.ChkL1isField = csv.CsvFirstRowIsHeader;
  changed_ = false;
}

void FormCsvModel::SetColumns(const std::vector<std::string>& names) {
  c_.CsvList.clear();
  for (const std::string& name : names) {
    if (const auto entry = EntryOf(name)) c_.CsvList.push_back(*entry);
  }
  c_.CsvListTop = 0;
  SelectCsvRow(c_.CsvList.empty() ? -1 : 0);
}

void FormCsvModel::FieldList_Click(int index) {
  c_.FieldListIndex = Clamp(index, c_.FieldList.size());
}

void FormCsvModel::SelectCsvRow(int index) {
  c_.CsvListIndex = Clamp(index, c_.CsvList.size());
  c_.FileFieldIndex = index < 0 ? -1 : Clamp(index, c_.FileField.size());
  c_.FileFieldTop = c_.CsvListTop;
}

void FormCsvModel::CsvList_Click(int index) {
  SelectCsvRow(index);
}

void FormCsvModel::FileField_Click(int index) {
  c_.FileFieldIndex = Clamp(index, c_.FileField.size());
  c_.CsvListIndex = Clamp(index, c_.CsvList.size());
  c_.CsvListTop = c_.FileFieldTop;
}

void FormCsvModel::CsvList_Scroll(int top) {
  c_.CsvListTop = c_.FileFieldTop = std::max(top, 0);
}

void FormCsvModel::FileField_Scroll(int top) {
  CsvList_Scroll(top);
}

void FormCsvModel::ChkL1isField_Click(bool checked) {
  if (c_.ChkL1isField != checked) changed_ = true;
  c_.ChkL1isField = checked;
}

// The reference keeps one row for each column, so that the two lists stand side by side.
void FormCsvModel::PadFileField() {
  if (c_.FileField.size() < c_.CsvList.size()) c_.FileField.resize(c_.CsvList.size());
}

void FormCsvModel::DropTrailingEmptyReferences() {
  while (!c_.FileField.empty() && c_.FileField.back().empty()) c_.FileField.pop_back();
  c_.FileFieldIndex = c_.CsvListIndex < 0 ? -1 : Clamp(c_.CsvListIndex, c_.FileField.size());
}

void FormCsvModel::cbtAdd_Click() {
  if (c_.FieldListIndex < 0) return;
  const CsvListEntry entry = c_.FieldList[static_cast<std::size_t>(c_.FieldListIndex)];
  const int at = c_.CsvListIndex < 0 ? static_cast<int>(c_.CsvList.size()) : c_.CsvListIndex;
  c_.CsvList.insert(c_.CsvList.begin() + at, entry);
  PadFileField();
  SelectCsvRow(at);
  changed_ = true;
}

void FormCsvModel::cbtMod_Click() {
  if (c_.FieldListIndex < 0 || c_.CsvListIndex < 0) return;
  c_.CsvList[static_cast<std::size_t>(c_.CsvListIndex)] =
      c_.FieldList[static_cast<std::size_t>(c_.FieldListIndex)];
  changed_ = true;
}

void FormCsvModel::cbtDelete_Click() {
  if (c_.CsvListIndex < 0) return;
  c_.CsvList.erase(c_.CsvList.begin() + c_.CsvListIndex);
  SelectCsvRow(c_.CsvListIndex);
  DropTrailingEmptyReferences();
  changed_ = true;
}

void FormCsvModel::cbtAllAdd_Click() {
  SetColumns(std::vector<std::string>(CsvFieldNames.begin(), CsvFieldNames.end()));
  changed_ = true;
}

void FormCsvModel::cbtAllDel_Click() {
  c_.CsvList.clear();
  c_.CsvListIndex = -1;
  std::erase_if(c_.FileField, [](const std::string& item) { return item.empty(); });
  c_.FileFieldIndex = -1;
  changed_ = true;
}

void FormCsvModel::MoveSelected(Direction direction) {
  const int from = c_.CsvListIndex;
  const int to = direction == kUp ? from - 1 : from + 1;
  if (from < 0 || to < 0 || to >= static_cast<int>(c_.CsvList.size())) return;
  std::swap(c_.CsvList[static_cast<std::size_t>(from)], c_.CsvList[static_cast<std::size_t>(to)]);
  SelectCsvRow(to);
  changed_ = true;
}

void FormCsvModel::StartMoving(Direction direction) {
  MoveSelected(direction);
  moving_ = direction;
  s_.Timer1.SetInterval(kFirstInterval);
  s_.Timer1.SetEnabled(true);
}

void FormCsvModel::CbtUp_MouseDown() {
  StartMoving(kUp);
}

void FormCsvModel::cbtDown_MouseDown() {
  StartMoving(kDown);
}

void FormCsvModel::MoveButton_MouseUp() {
  moving_ = kNone;
  s_.Timer1.SetEnabled(false);
}

void FormCsvModel::Timer1_Timer() {
  if (moving_ == kNone) return;
  MoveSelected(moving_);
  s_.Timer1.SetInterval(kRepeatInterval);
}

void FormCsvModel::CbtRead_Click() {
  std::optional<std::string> path;
  {
    const NoticesHeldWhile held(s_.notices);
    path = s_.dialogs.OpenFile({s_.folder, texts::kImportFilter, ""});
  }
  if (!path || !CheckIsCsvFile(*path, s_.messages)) return;
  std::ifstream in(*path, std::ios::binary);
  if (!in) return;
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  CsvRow row;
  try {
    row = CsvReader(bytes, s_.page).ReadCsvRow();
  } catch (const CsvReadFailure&) {
    return;
  }
  c_.FileField = row.items;
  SelectCsvRow(c_.CsvListIndex);
  const auto columns = CsvColumnsFromHeader(row.items);
  if (columns &&
      Ask(texts::kTakeHeaderMapping, MsgButtons::YesNo, MsgIcon::Question, MsgAnswer::Yes)) {
    SetColumns(*columns);
    c_.ChkL1isField = true;
    changed_ = true;
  }
}

void FormCsvModel::CbtReadClr_Click() {
  c_.FileField.clear();
  c_.FileFieldIndex = -1;
}

bool FormCsvModel::Ask(const char* text, MsgButtons buttons, MsgIcon icon, MsgAnswer yes) {
  return s_.messages.Show({text, kAppTitle, icon, buttons}) == yes;
}

bool FormCsvModel::cbtEnd_Click() {
  const bool anyField = std::any_of(c_.CsvList.begin(), c_.CsvList.end(),
                                    [](const CsvListEntry& entry) { return entry.data >= 0; });
  if (!anyField) {
    s_.messages.Show({texts::kNoCsvItems, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
    return false;
  }
  CsvSettings csv;
  for (const CsvListEntry& entry : c_.CsvList) csv.CsvColumns.push_back(entry.text);
  csv.CsvFirstRowIsHeader = c_.ChkL1isField;
  SaveCsvSettings(s_.settings, kSettingsApp, csv);
  changed_ = false;
  return true;
}

bool FormCsvModel::QueryUnload() {
  if (!changed_) return true;
  const MsgAnswer answer = s_.messages.Show(
      {texts::kAskSaveChanges, kAppTitle, MsgIcon::Exclamation, MsgButtons::YesNoCancel});
  if (answer == MsgAnswer::Yes) return cbtEnd_Click();
  return answer == MsgAnswer::No;
}

}  // namespace sched
