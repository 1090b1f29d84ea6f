#pragma once

#include <string>

namespace sched::testing {

// The named days of `year` under a country file made of a title line and `rules`, as
// "MM-DD name" items joined with ", ". Fails the test when the file does not parse.
std::string NamedDays(const std::string& rules, int year);

// The path of a shipped country file, e.g. ShippedFile("holidayJP.ini").
std::string ShippedFile(const std::string& name);

}  // namespace sched::testing
