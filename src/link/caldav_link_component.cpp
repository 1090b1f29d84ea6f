#include "link/caldav_link_component.h"

#include <cstdlib>
#include <map>

#include "core/app_texts.h"
#include "link/caldav_etags.h"
#include "link/ics_export.h"
#include "link/ics_link_component.h"
#include "link/ics_rules.h"
#include "link/link_records.h"
#include "store/scl_format.h"

namespace sched {
namespace {

// The titles a conflict message lists at most.
constexpr std::size_t kListedConflicts = 10;

std::string ConflictText(const std::vector<std::string>& titles) {
  const std::size_t n = titles.size();
  std::string text = n == 1 ? "1 appointment was changed on the server and was not replaced:"
                            : std::to_string(n) +
                                  " appointments were changed on the server and were not "
                                  "replaced:";
  for (std::size_t i = 0; i < n && i < kListedConflicts; ++i) text += "\n" + titles[i];
  if (n > kListedConflicts) text += "\n...";
  return text;
}

}  // namespace

std::string JoinCalendars(const std::vector<DavResource>& resources) {
  icalerror_set_errors_are_fatal(0);
  Component joined(icalcomponent_new_vcalendar());
  icalcomponent_add_property(joined.get(), icalproperty_new_version("2.0"));
  for (const DavResource& r : resources) {
    Component calendar(icalparser_parse_string(r.calendarData.c_str()));
    if (!calendar || icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT) continue;
    std::vector<icalcomponent*> taken;
    for (icalcomponent* c = icalcomponent_get_first_component(calendar.get(), ICAL_ANY_COMPONENT);
         c != nullptr; c = icalcomponent_get_next_component(calendar.get(), ICAL_ANY_COMPONENT)) {
      const icalcomponent_kind kind = icalcomponent_isa(c);
      if (kind == ICAL_VEVENT_COMPONENT || kind == ICAL_VTIMEZONE_COMPONENT) taken.push_back(c);
    }
    for (icalcomponent* c : taken) {
      icalcomponent_remove_component(calendar.get(), c);
      icalcomponent_add_component(joined.get(), c);
    }
  }
  char* text = icalcomponent_as_ical_string_r(joined.get());
  std::string out = text != nullptr ? text : "";
  std::free(text);
  return out;
}

void CalDavLinkComponent::Say(const std::string& text, MsgIcon icon) {
  s_.messages.Show({text, kAppTitle, icon, MsgButtons::Ok});
}

void CalDavLinkComponent::Fail(const CalDavOutcome& outcome) {
  if (outcome.problem == CalDavProblem::kLoginRefused) s_.passwordRefused();
  Say(ProblemText(outcome));
}

std::optional<CalDavCollection> CalDavLinkComponent::Open() {
  const std::optional<std::string> password = s_.password();
  if (!password) {
    Fail({CalDavProblem::kCancelled, "", ""});
    return std::nullopt;
  }
  CalDavCollection collection(s_.http, {s_.url(), s_.user(), *password});
  const CalDavCollection::Summary summary = collection.Probe(false);
  if (!summary.outcome.Ok()) {
    Fail(summary.outcome);
    return std::nullopt;
  }
  return collection;
}

bool CalDavLinkComponent::Export(std::span<const std::uint8_t> linkFile) {
  std::optional<CalDavCollection> collection = Open();
  if (!collection) return false;
  // One event a series or item, in the order of the file.
  std::map<std::string, std::vector<SchRecord>> events;
  std::vector<std::string> order;
  for (SchRecord& r : ReadExportRecords(linkFile, s_.codePage()).records) {
    auto [at, added] = events.try_emplace(EventUid(r));
    if (added) order.push_back(at->first);
    at->second.push_back(std::move(r));
  }
  CalDavEtags etags(s_.etagFolder, s_.url());
  std::vector<std::string> conflicts;
  const DateTime stamp = UtcNow();
  for (const std::string& uid : order) {
    const std::vector<SchRecord>& rows = events[uid];
    const std::optional<std::string> ics = MergeIntoCalendar(rows, "", stamp);
    if (!ics) continue;
    const CalDavCollection::PutResult put = collection->Put(uid, *ics, etags.Of(uid));
    if (!put.outcome.Ok()) {
      // What went over before stays recorded, so that the next export goes on from there.
      (void)etags.Save();
      Fail(put.outcome);
      return false;
    }
    if (put.changedOnServer) {
      conflicts.push_back(rows.front().Title);
    } else {
      etags.Set(uid, put.etag);
    }
  }
  if (!etags.Save()) return false;
  if (!conflicts.empty()) Say(ConflictText(conflicts));
  return true;
}

std::optional<std::vector<std::uint8_t>> CalDavLinkComponent::Import() {
  std::optional<CalDavCollection> collection = Open();
  if (!collection) return std::nullopt;
  const ImportPeriod period = s_.period();
  const CalDavCollection::Events events = collection->Query(period.first, period.last);
  if (!events.outcome.Ok()) {
    Fail(events.outcome);
    return std::nullopt;
  }
  return ImportFileOfCalendar(JoinCalendars(events.resources), s_.clock, s_.codePage());
}

}  // namespace sched
