#include <array>
#include <filesystem>
#include <functional>
#include <optional>

#include "appointments/repeat_rule.h"
#include "appointments/sch_edit_model.h"
#include "appointments/texts.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/stream_messages.h"
#include "cli/verb.h"
#include "core/app_texts.h"
#include "shell/device_service.h"
#include "shell/stock_sounds.h"

namespace sched {
namespace {

// The repeat dialog's choices for each kind: the option, and by day of week or not.
struct RepeatChoice {
  std::string_view name;
  int option = 0;
  bool byWeekday = false;
};
constexpr std::array<RepeatChoice, 6> kRepeatKinds = {{{"daily", kOptionDaily, false},
                                                       {"weekly", kOptionWeekly, false},
                                                       {"monthly", kOptionMonthly, false},
                                                       {"yearly", kOptionYearly, false},
                                                       {"monthly-weekday", kOptionMonthly, true},
                                                       {"yearly-weekday", kOptionYearly, true}}};
// The items of the ordinal and weekday lists, in the lists' order.
constexpr std::array<std::string_view, 5> kOrdinals = {"1", "2", "3", "4", "last"};
constexpr std::array<std::string_view, 7> kWeekdays = {"sun", "mon", "tue", "wed",
                                                       "thu", "fri", "sat"};

// The place of `value` among the names of `items`; a UsageError that lists them when it is
// none of them.
template <typename Items, typename NameOf>
std::size_t Choose(std::string_view option, const std::string& value, const Items& items,
                   NameOf nameOf) {
  std::string listed;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::string_view name = nameOf(items[i]);
    if (name == value) return i;
    listed += (i == 0 ? "" : i + 1 == items.size() ? " or " : ", ") + std::string(name);
  }
  throw UsageError(std::string(option) + " takes " + listed + ", not " + value);
}

// The start and end of "--time HH:MM-HH:MM", as typed and in minutes after 0:00.
struct TimeSpan {
  std::string start;
  std::string end;
  int startMinutes = 0;
  int endMinutes = 0;
};

// What was asked, checked for what goes together before any dialog opens.
struct AddRequest {
  CommandOptions o;
  CivilDate date;
  std::optional<CivilDate> endDate;
  std::optional<TimeSpan> time;
  std::optional<int> alarm;
  const RepeatChoice* repeat = nullptr;
  int every = 0;
  int count = 0;
  std::optional<std::size_t> ordinal;
  std::optional<std::size_t> weekday;
  // The date the repeat dialog opens on, where the rule is chosen.
  CivilDate ruleDate;
};

std::optional<TimeSpan> ParseTimeSpan(const std::string* text) {
  if (text == nullptr) return std::nullopt;
  const std::size_t dash = text->find('-');
  TimeSpan span{text->substr(0, dash), dash == std::string::npos ? "" : text->substr(dash + 1)};
  const std::optional<int> start = ParseTimeText(span.start);
  const std::optional<int> end = ParseTimeText(span.end);
  if (!start || !end) throw UsageError("--time takes HH:MM-HH:MM, not " + *text);
  span.startMinutes = *start;
  span.endMinutes = *end;
  return span;
}

AddRequest ParseRequest(const std::vector<std::string>& args) {
  AddRequest r;
  r.o = ParseOptions(
      args,
      {"--title", "--date", "--end-date", "--time", "--place", "--memo", "--alarm", "--sound",
       "--repeat", "--every", "--count", "--ordinal", "--weekday", "--rule-date"},
      {"--all-day", "--private"});
  const CommandOptions& o = r.o;
  o.Required("--title");
  r.date = RequireDate(o.Required("--date"));
  r.endDate = o.Date("--end-date");
  if (r.endDate && DaySerial(*r.endDate) < DaySerial(r.date)) {
    throw UsageError("--end-date " + *o.Value("--end-date") + " is before --date " +
                     *o.Value("--date"));
  }
  o.Excludes("--time", "--all-day");
  o.Excludes("--alarm", "--all-day");
  o.Needs("--sound", "--alarm");
  r.time = ParseTimeSpan(o.Value("--time"));
  r.alarm = o.Int("--alarm");
  for (const char* detail : {"--every", "--count", "--ordinal", "--weekday", "--rule-date"}) {
    o.Needs(detail, "--repeat");
  }
  r.ruleDate = o.Date("--rule-date").value_or(r.date);
  const std::string* repeat = o.Value("--repeat");
  if (repeat == nullptr) return r;
  r.repeat = &kRepeatKinds[Choose("--repeat", *repeat, kRepeatKinds,
                                  [](const RepeatChoice& kind) { return kind.name; })];
  r.every = RequireInt("--every", o.Required("--every"));
  r.count = RequireInt("--count", o.Required("--count"));
  for (const char* detail : {"--ordinal", "--weekday"}) {
    if (o.Value(detail) && !r.repeat->byWeekday) {
      throw UsageError(std::string(detail) +
                       " needs --repeat monthly-weekday or --repeat yearly-weekday");
    }
  }
  if (const std::string* ordinal = o.Value("--ordinal")) {
    r.ordinal = Choose("--ordinal", *ordinal, kOrdinals, std::identity{});
  }
  if (const std::string* weekday = o.Value("--weekday")) {
    r.weekday = Choose("--weekday", *weekday, kWeekdays, std::identity{});
  }
  return r;
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
  ScriptedRepeatDialog(const AddRequest& request, std::ostream& err) : r_(request), err_(err) {}

  void ShowRepeatDialog(RepeatModel& repeat) override {
    repeat.Option1_Click(r_.repeat->option);
    if (repeat.Controls().Option1 != r_.repeat->option) {
      err_ << "scltool add: the repeat dialog offers no " << r_.repeat->name << " rule from "
           << *r_.o.Value(r_.o.Value("--rule-date") ? "--rule-date" : "--date") << '\n';
      refused_ = true;
      return;
    }
    if (r_.repeat->byWeekday) repeat.Option2_Click(1);
    if (r_.weekday) repeat.Combo1_Click(static_cast<int>(*r_.weekday));
    if (r_.ordinal) repeat.Combo2_Click(static_cast<int>(*r_.ordinal));
    repeat.ImNumber_Change(RepeatNumberField::ImNumber2, r_.every);
    repeat.ImNumber_Change(RepeatNumberField::ImNumber1, r_.count);
    if (repeat.TakeFocus() || !repeat.OKButton_Click()) {
      refused_ = true;
      repeat.CancelButton_Click();
    }
  }
  bool Refused() const { return refused_; }

 private:
  const AddRequest& r_;
  std::ostream& err_;
  bool refused_ = false;
};

// Types the request into the edit dialog; false when a field refused its value, after the
// dialog said why.
bool FillEditDialog(SchEditModel& model, Messages& messages, ScriptedRepeatDialog& repeat,
                    const AddRequest& r) {
  model.Text1_Change(*r.o.Value("--title"));
  if (const std::string* place = r.o.Value("--place")) model.Text3_Change(*place);
  if (const std::string* memo = r.o.Value("--memo")) model.Text2_Change(*memo);
  if (r.o.Flag("--all-day")) model.Check3_Click(true);
  if (r.time) {
    // The time combos pull each other along; both ends come at once here, as OK sees them.
    if (r.time->endMinutes < r.time->startMinutes) {
      messages.Show({appointment_texts::kInvalidTime, kAppTitle});
      return false;
    }
    model.Combo1_Text(0, r.time->start);
    model.Combo1_Text(1, r.time->end);
  }
  if (r.alarm) {
    model.Check1_Click(true);
    if (!model.Controls().Check1) return false;
    model.ImNumber1_Change(*r.alarm);
    if (const std::string* sound = r.o.Value("--sound")) {
      model.Sound_Change(*sound);
      if (!model.Sound_LostFocus()) return false;
    }
  }
  if (r.o.Flag("--private")) model.Check2_Click(true);
  if (r.repeat) {
    model.Command1_Click();
    if (repeat.Refused()) return false;
    model.ImDate1_Change(0, r.date);
  }
  if (r.endDate) model.ImDate1_Change(1, r.endDate);
  return true;
}

int RunAdd(const std::vector<std::string>& args, std::ostream&, std::ostream& err, CodePage page) {
  const AddRequest r = ParseRequest(args);
  CliStore cli(err, page);
  if (std::filesystem::exists(r.o.file) && !cli.Load(r.o.file)) return kExitRefused;

  // The dialog opens on the date the rule is chosen for, or on the item's date.
  ScheduleDocument& doc = cli.Document();
  doc.SetShownDate(r.ruleDate);

  StreamMessages messages(err);
  IsoDateFormatter dates;
  SystemClock clock;
  ScriptedRepeatDialog repeat(r, err);
  SchEditModel model(
      SchEditServices{cli.Store(), messages, clock, dates, repeat, StockSoundNames()});
  model.OpenNew();
  if (!FillEditDialog(model, messages, repeat, r) || !model.SchEditOK_Click()) return kExitRefused;
  return cli.Save(r.o.file) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kAddVerb{"add",
                    "FILE.scl --title T --date YYYY/MM/DD [--end-date YYYY/MM/DD]\n"
                    " [--time HH:MM-HH:MM | --all-day] [--place P] [--memo M]\n"
                    " [--alarm MINUTES [--sound NAME]] [--private]\n"
                    " [--repeat daily|weekly|monthly|yearly|monthly-weekday|yearly-weekday\n"
                    "  --every N --count K [--ordinal 1|2|3|4|last] [--weekday sun|...|sat]\n"
                    "  [--rule-date YYYY/MM/DD]]",
                    "adds an appointment as the dialogs do, and saves the file", RunAdd, true};

}  // namespace sched
