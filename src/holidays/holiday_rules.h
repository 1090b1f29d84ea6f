#pragma once

#include <string>
#include <vector>

#include "holidays/country_file.h"

namespace sched {

struct NamedDay {
  int month = 0;
  int day = 0;
  std::string name;  // 8-bit form, at most kMaxHolidayNameBytes
};

// Every named day of `year` under the rules of `file`, in date order, one entry a date.
//
// The days come in three rounds. First each rule names its date; a rule's span is tested
// against that date. Then each holiday that a rule observes elsewhere, and each holiday on a
// Sunday that a substitute rule covers, names its substitute day, in date order, so that a
// later holiday skips a day an earlier one took. Last the bridge rules name the days between
// two rule-named holidays. Rules of the years before and after are evaluated as well, so that a
// New Year's Day on a Saturday names December 31 of the year before.
//
// When several names fall on one date they are joined with "/" in that order (rules in file
// order, then substitute days, then bridge days); a name already there is not repeated, and a
// name that would take the joined text past kMaxHolidayNameBytes is left out.
std::vector<NamedDay> EvaluateYear(const CountryFile& file, int year);

}  // namespace sched
