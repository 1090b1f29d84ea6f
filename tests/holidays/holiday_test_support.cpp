#include "holiday_test_support.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "holidays/country_file.h"
#include "holidays/holiday_rules.h"

namespace sched::testing {

std::string NamedDays(const std::string& rules, int year) {
  CountryFile file;
  CountryFileError error;
  if (!ParseCountryFile("Test\n" + rules, file, error)) {
    ADD_FAILURE() << "line " << error.line << ": " << error.message;
    return {};
  }
  std::string text;
  for (const NamedDay& named : EvaluateYear(file, year)) {
    char date[8];
    std::snprintf(date, sizeof date, "%02d-%02d", named.month, named.day);
    if (!text.empty()) text += ", ";
    text += std::string(date) + " " + named.name;
  }
  return text;
}

std::string ShippedFile(const std::string& name) {
  return std::string(SCHEDULER_DATA_DIR) + "/pcapps/" + name;
}

}  // namespace sched::testing
