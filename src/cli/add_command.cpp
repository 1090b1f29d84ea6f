#include "cli/add_command.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

#include "appointments/sch_edit_model.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"
#include "platform/std/console.h"
#include "shell/device_service.h"
#include "shell/stock_sounds.h"

namespace sched {
namespace {

constexpr const char* kUsage =
    "usage: scltool add FILE.scl --title T --date YYYY/MM/DD [--end-date YYYY/MM/DD]\n"
    "         [--time HH:MM-HH:MM | --all-day] [--place P] [--memo M]\n"
    "         [--alarm MINUTES [--sound NAME]] [--private]\n"
    "         [--repeat daily|weekly|monthly|yearly|monthly-weekday|yearly-weekday\n"
    "          --every N --count K [--ordinal 1|2|3|4|last] [--weekday sun|...|sat]\n"
    "          [--rule-date YYYY/MM/DD]]";

// The repeat dialog's choices for each kind: the option, and by day of week or not.
struct RepeatChoice {
  int option = 0;
  bool byWeekday = false;
};
const std::map<std::string, RepeatChoice> kRepeatKinds = {
    {"daily", {1, false}},  {"weekly", {2, false}},         {"monthly", {3, false}},
    {"yearly", {4, false}}, {"monthly-weekday", {3, true}}, {"yearly-weekday", {4, true}}};
const std::map<std::string, int> kOrdinals = {{"1", 0}, {"2", 1}, {"3", 2}, {"4", 3}, {"last", 4}};
const std::map<std::string, int> kWeekdays = {{"sun", 0}, {"mon", 1}, {"tue", 2}, {"wed", 3},
                                              {"thu", 4}, {"fri", 5}, {"sat", 6}};

std::optional<int> Number(const std::string& text) {
  return ParseInt(text, 10, INT32_MIN, INT32_MAX);
}

std::optional<CommandOptions> ParseRequest(const std::vector<std::string>& args) {
  return ParseOptions(
      args,
      {"--title", "--date", "--end-date", "--time", "--place", "--memo", "--alarm", "--sound",
       "--repeat", "--every", "--count", "--ordinal", "--weekday", "--rule-date"},
      {"--all-day", "--private"});
}

// Whether the options go together: a title and a date, one way of giving the time, the sound
// and the rule's details only with an alarm and a rule.
bool Consistent(const CommandOptions& r) {
  if (!r.Value("--title") || !r.Date("--date")) return false;
  if (r.Value("--end-date") && !r.Date("--end-date")) return false;
  if (r.Value("--time") && r.Flag("--all-day")) return false;
  if (r.Value("--sound") && !r.Value("--alarm")) return false;
  if (r.Value("--alarm") && !Number(*r.Value("--alarm"))) return false;
  const std::string* repeat = r.Value("--repeat");
  for (const char* detail : {"--every", "--count", "--ordinal", "--weekday", "--rule-date"}) {
    if (r.Value(detail) && !repeat) return false;
  }
  if (!repeat) return true;
  const auto kind = kRepeatKinds.find(*repeat);
  if (kind == kRepeatKinds.end() || !r.Value("--every") || !r.Value("--count")) return false;
  if (!Number(*r.Value("--every")) || !Number(*r.Value("--count"))) return false;
  if (r.Value("--rule-date") && !r.Date("--rule-date")) return false;
  const bool weekdayParts = r.Value("--ordinal") || r.Value("--weekday");
  if (weekdayParts && !kind->second.byWeekday) return false;
  if (r.Value("--ordinal") && kOrdinals.count(*r.Value("--ordinal")) == 0) return false;
  return !r.Value("--weekday") || kWeekdays.count(*r.Value("--weekday")) != 0;
}

// The sounds of every installation: a script names one of them.
std::vector<std::string> StockSoundNames() {
  std::vector<std::string> names;
  for (const Melody& melody : StockMelodies()) names.push_back(AlarmSoundName(melody.fileName));
  return names;
}

// The user of the repeat dialog: chooses the kind and its details, then presses OK; a refused
// value ends the dialog with Cancel.
class ScriptedRepeatDialog : public SchEditHost {
 public:
  explicit ScriptedRepeatDialog(const CommandOptions& request) : r_(request) {}

  void ShowRepeatDialog(RepeatModel& repeat) override {
    const RepeatChoice choice = kRepeatKinds.at(*r_.Value("--repeat"));
    repeat.Option1_Click(choice.option);
    if (repeat.Controls().Option1 != choice.option) {
      refused_ = true;
      return;
    }
    if (choice.byWeekday) repeat.Option2_Click(1);
    if (const std::string* weekday = r_.Value("--weekday")) {
      repeat.Combo1_Click(kWeekdays.at(*weekday));
    }
    if (const std::string* ordinal = r_.Value("--ordinal")) {
      repeat.Combo2_Click(kOrdinals.at(*ordinal));
    }
    repeat.ImNumber_Change(RepeatNumberField::ImNumber2, *Number(*r_.Value("--every")));
    repeat.ImNumber_Change(RepeatNumberField::ImNumber1, *Number(*r_.Value("--count")));
    if (repeat.TakeFocus() || !repeat.OKButton_Click()) {
      refused_ = true;
      repeat.CancelButton_Click();
    }
  }
  bool Refused() const { return refused_; }

 private:
  const CommandOptions& r_;
  bool refused_ = false;
};

// Types the request into the edit dialog; false when a field refused its value.
bool FillEditDialog(SchEditModel& model, ScriptedRepeatDialog& repeat, const CommandOptions& r) {
  model.Text1_Change(*r.Value("--title"));
  if (const std::string* place = r.Value("--place")) model.Text3_Change(*place);
  if (const std::string* memo = r.Value("--memo")) model.Text2_Change(*memo);
  if (r.Flag("--all-day")) model.Check3_Click(true);
  if (const std::string* time = r.Value("--time")) {
    const std::size_t dash = time->find('-');
    const std::optional<int> start = ParseTimeText(time->substr(0, dash));
    const std::optional<int> end =
        dash == std::string::npos ? std::nullopt : ParseTimeText(time->substr(dash + 1));
    if (!start || !end) return false;
    model.Combo1_Text(0, time->substr(0, dash));
    model.Combo1_Text(1, time->substr(dash + 1));
  }
  if (const std::string* alarm = r.Value("--alarm")) {
    model.Check1_Click(true);
    if (!model.Controls().Check1) return false;
    model.ImNumber1_Change(*Number(*alarm));
    if (const std::string* sound = r.Value("--sound")) {
      model.Sound_Change(*sound);
      if (!model.Sound_LostFocus()) return false;
    }
  }
  if (r.Flag("--private")) model.Check2_Click(true);
  if (r.Value("--repeat")) {
    model.Command1_Click();
    if (repeat.Refused()) return false;
    model.ImDate1_Change(0, r.Date("--date"));
  }
  if (r.Value("--end-date")) model.ImDate1_Change(1, r.Date("--end-date"));
  return true;
}

}  // namespace

int RunAddCommand(const std::vector<std::string>& args, std::ostream& err) {
  const std::optional<CommandOptions> request = ParseRequest(args);
  if (!request || !Consistent(*request)) {
    err << kUsage << '\n';
    return 2;
  }
  const CommandOptions& r = *request;
  CliStore cli;
  if (std::filesystem::exists(r.file) && !cli.Load(r.file)) return 1;

  // The dialog opens on the date the rule is chosen for, or on the item's date.
  const CivilDate opened = *r.Date(r.Value("--rule-date") ? "--rule-date" : "--date");
  ScheduleDocument& doc = cli.Store().Document();
  doc.CurYear = opened.year;
  doc.CurMonth = opened.month;
  doc.CurDay = opened.day;

  StreamMessages messages(err);
  IsoDateFormatter dates;
  SystemClock clock;
  ScriptedRepeatDialog repeat(r);
  SchEditModel model(
      SchEditServices{cli.Store(), messages, clock, dates, repeat, StockSoundNames()});
  model.OpenNew();
  if (!FillEditDialog(model, repeat, r) || !model.SchEditOK_Click() || !model.Written()) {
    return 1;
  }
  return cli.Save(r.file) ? 0 : 1;
}

}  // namespace sched
