#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "holiday_test_support.h"
#include "holidays/country_calendar.h"
#include "holidays/country_file.h"
#include "holidays/holiday_rules.h"

namespace sched {
namespace {

using testing::ShippedFile;

const char* const kShippedFiles[] = {"holidayUS.ini", "holidayUK.ini", "holidayJP.ini",
                                     "holidayDE.ini", "holidayFR.ini"};

struct KnownDay {
  int year, month, day;
  std::string name;  // empty: no holiday that day
};

// Looks each date up through the calendar port, as the month view does.
void ExpectDays(const std::string& fileName, const std::vector<KnownDay>& days) {
  CountryCalendar calendar;
  CalendarHandle handle = 0;
  ASSERT_EQ(calendar.SorCalender_InitFunction(ShippedFile(fileName), handle), 0) << fileName;
  for (const KnownDay& known : days) {
    std::string name;
    const int result =
        calendar.SorCalender_GetHolidayName(handle, known.year, known.month, known.day, name);
    EXPECT_EQ(result == 0 ? name : std::string(), known.name)
        << fileName << " " << known.year << "/" << known.month << "/" << known.day;
  }
}

TEST(ShippedFiles, UnitedStates) {
  ExpectDays("holidayUS.ini", {{1901, 1, 1, "New Year's Day"},
                               {1901, 2, 22, "Washington's Birthday"},
                               {1901, 5, 30, "Memorial Day"},
                               {1901, 9, 2, "Labor Day"},
                               {1901, 11, 28, "Thanksgiving Day"},
                               {1937, 10, 12, ""},
                               {1937, 11, 11, ""},
                               {1938, 11, 11, "Armistice Day"},
                               {1939, 11, 23, "Thanksgiving Day"},
                               {1939, 11, 30, ""},
                               {1940, 11, 21, "Thanksgiving Day"},
                               {1941, 11, 20, "Thanksgiving Day"},
                               {1942, 11, 26, "Thanksgiving Day"},
                               {1950, 1, 2, ""},
                               {1954, 7, 5, "Independence Day (observed)"},
                               {1954, 11, 11, "Veterans Day"},
                               {1970, 5, 30, "Memorial Day"},
                               {1971, 2, 15, "Washington's Birthday"},
                               {1971, 2, 22, ""},
                               {1971, 5, 31, "Memorial Day"},
                               {1971, 10, 11, "Columbus Day"},
                               {1971, 10, 25, "Veterans Day"},
                               {1976, 12, 24, "Christmas Day (observed)"},
                               {1977, 11, 11, ""},
                               {1978, 11, 10, "Veterans Day (observed)"},
                               {1985, 1, 21, ""},
                               {1986, 1, 20, "Martin Luther King Jr. Day"},
                               {2020, 6, 19, ""},
                               {2021, 6, 18, "Juneteenth National Independence Day (observed)"},
                               {2021, 6, 19, "Juneteenth National Independence Day"},
                               {2021, 12, 31, "New Year's Day (observed)"},
                               {2022, 12, 26, "Christmas Day (observed)"},
                               {2023, 11, 10, "Veterans Day (observed)"},
                               {2024, 11, 28, "Thanksgiving Day"},
                               {2099, 12, 25, "Christmas Day"}});
}

TEST(ShippedFiles, EnglandAndWales) {
  ExpectDays("holidayUK.ini", {{1901, 1, 1, ""},
                               {1901, 4, 5, "Good Friday"},
                               {1901, 4, 8, "Easter Monday"},
                               {1901, 5, 27, "Whit Monday"},
                               {1901, 8, 5, "August bank holiday"},
                               {1901, 12, 26, "Boxing Day"},
                               {1935, 5, 6, "Silver Jubilee of King George V"},
                               {1937, 12, 27, "Boxing Day (substitute day)"},
                               {1953, 6, 2, "Coronation of Queen Elizabeth II"},
                               {1965, 6, 7, "Whit Monday"},
                               {1965, 8, 2, ""},
                               {1965, 8, 30, "Summer bank holiday"},
                               {1967, 5, 15, ""},
                               {1967, 5, 29, "Spring bank holiday"},
                               {1968, 6, 3, "Whit Monday"},
                               {1968, 8, 26, ""},
                               {1968, 9, 2, "Summer bank holiday"},
                               {1969, 9, 1, "Summer bank holiday"},
                               {1970, 12, 28, ""},
                               {1971, 12, 27, "Christmas Day (substitute day)"},
                               {1971, 12, 28, "Boxing Day (substitute day)"},
                               {1973, 1, 1, ""},
                               {1974, 1, 1, "New Year's Day"},
                               {1977, 1, 3, "New Year's Day (substitute day)"},
                               {1977, 5, 2, ""},
                               {1977, 5, 30, ""},
                               {1977, 6, 6, "Spring bank holiday"},
                               {1977, 6, 7, "Silver Jubilee of Queen Elizabeth II"},
                               {1978, 5, 1, "Early May bank holiday"},
                               {1981, 7, 29, "Royal Wedding"},
                               {1995, 5, 1, ""},
                               {1995, 5, 8, "Early May bank holiday (VE Day)"},
                               {1999, 12, 31, "Millennium Celebrations"},
                               {2000, 1, 3, "New Year's Day (substitute day)"},
                               {2002, 5, 27, ""},
                               {2002, 6, 3, "Golden Jubilee of Queen Elizabeth II"},
                               {2002, 6, 4, "Spring bank holiday"},
                               {2011, 4, 29, "Royal Wedding"},
                               {2012, 6, 4, "Spring bank holiday"},
                               {2012, 6, 5, "Diamond Jubilee of Queen Elizabeth II"},
                               {2020, 5, 4, ""},
                               {2020, 5, 8, "Early May bank holiday (VE Day)"},
                               {2020, 12, 28, "Boxing Day (substitute day)"},
                               {2022, 5, 30, ""},
                               {2022, 6, 2, "Spring bank holiday"},
                               {2022, 6, 3, "Platinum Jubilee of Queen Elizabeth II"},
                               {2022, 9, 19, "State Funeral of Queen Elizabeth II"},
                               {2023, 5, 8, "Coronation of King Charles III"},
                               {2099, 12, 25, "Christmas Day"}});
}

TEST(ShippedFiles, Japan) {
  ExpectDays("holidayJP.ini", {{1948, 1, 1, ""},
                               {1948, 5, 5, ""},
                               {1948, 9, 23, "Autumnal Equinox Day"},
                               {1948, 11, 3, "Culture Day"},
                               {1949, 1, 15, "Coming of Age Day"},
                               {1959, 4, 10, "The Crown Prince's Wedding"},
                               {1966, 2, 11, ""},
                               {1966, 9, 15, "Respect for the Aged Day"},
                               {1966, 10, 10, "Health and Sports Day"},
                               {1967, 2, 11, "National Foundation Day"},
                               {1973, 2, 12, ""},
                               {1973, 4, 30, "Substitute Holiday"},
                               {1986, 5, 4, ""},
                               {1988, 4, 29, "The Emperor's Birthday"},
                               {1988, 5, 4, "Citizens' Holiday"},
                               {1989, 2, 24, "Funeral of the Showa Emperor"},
                               {1989, 4, 29, "Greenery Day"},
                               {1989, 12, 23, "The Emperor's Birthday"},
                               {1990, 11, 12, "Enthronement Ceremony"},
                               {1993, 6, 9, "The Crown Prince's Wedding"},
                               {1995, 7, 20, ""},
                               {1996, 7, 20, "Marine Day"},
                               {2000, 1, 10, "Coming of Age Day"},
                               {2000, 1, 15, ""},
                               {2000, 10, 9, "Health and Sports Day"},
                               {2003, 7, 21, "Marine Day"},
                               {2003, 9, 15, "Respect for the Aged Day"},
                               {2006, 5, 4, "Citizens' Holiday"},
                               {2007, 4, 29, "Showa Day"},
                               {2007, 4, 30, "Substitute Holiday"},
                               {2007, 5, 4, "Greenery Day"},
                               {2008, 5, 6, "Substitute Holiday"},
                               {2009, 9, 22, "Citizens' Holiday"},
                               {2015, 8, 11, ""},
                               {2016, 8, 11, "Mountain Day"},
                               {2018, 12, 24, "Substitute Holiday"},
                               {2019, 4, 30, "Citizens' Holiday"},
                               {2019, 5, 1, "Enthronement Day"},
                               {2019, 5, 2, "Citizens' Holiday"},
                               {2019, 5, 6, "Substitute Holiday"},
                               {2019, 10, 22, "Enthronement Ceremony"},
                               {2019, 12, 23, ""},
                               {2020, 2, 23, "The Emperor's Birthday"},
                               {2020, 7, 20, ""},
                               {2020, 7, 23, "Marine Day"},
                               {2020, 7, 24, "Sports Day"},
                               {2020, 8, 10, "Mountain Day"},
                               {2020, 8, 11, ""},
                               {2020, 10, 12, ""},
                               {2021, 7, 19, ""},
                               {2021, 8, 8, "Mountain Day"},
                               {2021, 8, 9, "Substitute Holiday"},
                               {2022, 10, 10, "Sports Day"},
                               {2092, 3, 19, "Vernal Equinox Day"},
                               {2099, 11, 23, "Labour Thanksgiving Day"}});
}

TEST(ShippedFiles, Germany) {
  ExpectDays("holidayDE.ini", {{1901, 1, 1, "Neujahr"},
                               {1901, 4, 5, ""},
                               {1901, 4, 8, "Ostermontag"},
                               {1901, 5, 16, "Christi Himmelfahrt"},
                               {1901, 5, 27, "Pfingstmontag"},
                               {1901, 12, 25, "1. Weihnachtstag"},
                               {1901, 12, 26, "2. Weihnachtstag"},
                               {1918, 5, 1, ""},
                               {1919, 5, 1, "Maifeiertag"},
                               {1920, 5, 1, ""},
                               {1933, 5, 1, "Maifeiertag"},
                               {1934, 3, 30, "Karfreitag"},
                               {1934, 11, 21, "Bu\xC3\x9F- und Bettag"},
                               {1939, 11, 22, ""},
                               {1946, 5, 1, "Tag der Arbeit"},
                               {1953, 6, 17, ""},
                               {1954, 6, 17, "Tag der deutschen Einheit"},
                               {1980, 11, 19, ""},
                               {1981, 11, 18, "Bu\xC3\x9F- und Bettag"},
                               {1989, 10, 3, ""},
                               {1990, 6, 17, "Tag der deutschen Einheit"},
                               {1990, 10, 3, "Tag der Deutschen Einheit"},
                               {1991, 6, 17, ""},
                               {1994, 11, 16, "Bu\xC3\x9F- und Bettag"},
                               {1995, 11, 22, ""},
                               {2008, 5, 1, "Tag der Arbeit/Christi Himmelfahrt"},
                               {2016, 10, 31, ""},
                               {2017, 10, 31, "Reformationstag"},
                               {2018, 10, 31, ""},
                               {2020, 1, 6, ""},
                               {2024, 3, 29, "Karfreitag"},
                               {2024, 5, 9, "Christi Himmelfahrt"},
                               {2024, 5, 20, "Pfingstmontag"},
                               {2099, 12, 26, "2. Weihnachtstag"}});
}

TEST(ShippedFiles, France) {
  ExpectDays("holidayFR.ini", {{1901, 1, 1, "Jour de l'An"},
                               {1901, 4, 8, "Lundi de P\xC3\xA2ques"},
                               {1901, 5, 1, ""},
                               {1901, 5, 16, "Ascension"},
                               {1901, 5, 27, "Lundi de Pentec\xC3\xB4te"},
                               {1901, 7, 14, "F\xC3\xAAte nationale"},
                               {1901, 8, 15, "Assomption"},
                               {1901, 11, 1, "Toussaint"},
                               {1901, 12, 25, "No\xC3\xABl"},
                               {1919, 5, 1, "F\xC3\xAAte du Travail"},
                               {1920, 5, 1, ""},
                               {1921, 11, 11, ""},
                               {1922, 11, 11, "Armistice 1918"},
                               {1941, 5, 1, "F\xC3\xAAte du Travail et de la Concorde sociale"},
                               {1945, 5, 1, ""},
                               {1947, 5, 1, "F\xC3\xAAte du Travail"},
                               {1952, 5, 8, ""},
                               {1953, 5, 8, "Victoire 1945"},
                               {1958, 5, 8, "Victoire 1945"},
                               {1959, 5, 8, ""},
                               {1981, 5, 8, ""},
                               {1982, 5, 8, "Victoire 1945"},
                               {2005, 5, 16, "Lundi de Pentec\xC3\xB4te"},
                               {2008, 5, 1, "F\xC3\xAAte du Travail/Ascension"},
                               {2023, 4, 7, ""},
                               {2023, 12, 26, ""},
                               {2024, 4, 1, "Lundi de P\xC3\xA2ques"},
                               {2024, 5, 9, "Ascension"},
                               {2099, 7, 14, "F\xC3\xAAte nationale"},
                               {2099, 11, 11, "Armistice 1918"}});
}

// Every year of every shipped file evaluates to real dates of that year, each once, with names
// that fit the 100-byte buffer of the calendar library.
TEST(ShippedFiles, EveryYearIsWellFormed) {
  for (const char* fileName : kShippedFiles) {
    CountryFile file;
    CountryFileError error;
    ASSERT_TRUE(LoadCountryFile(ShippedFile(fileName), file, error))
        << fileName << " line " << error.line << ": " << error.message;
    for (int year = 1901; year <= 2099; ++year) {
      int previous = 0;
      for (const NamedDay& named : EvaluateYear(file, year)) {
        const std::chrono::year_month_day date{std::chrono::year{year},
                                               std::chrono::month{unsigned(named.month)},
                                               std::chrono::day{unsigned(named.day)}};
        EXPECT_TRUE(date.ok()) << fileName << " " << year << "/" << named.month << "/" << named.day;
        const int code = named.month * 100 + named.day;
        EXPECT_GT(code, previous) << fileName << " " << year << ": dates out of order or twice";
        previous = code;
        EXPECT_FALSE(named.name.empty()) << fileName << " " << year;
        EXPECT_LE(named.name.size(), kMaxHolidayNameBytes) << fileName << " " << year;
      }
    }
  }
}

// From 1978 England and Wales have eight bank holidays on weekdays every year: substitute days
// make up for those that fall on a weekend.
TEST(ShippedFiles, EnglandHasEightWeekdayBankHolidaysAYear) {
  CountryFile file;
  CountryFileError error;
  ASSERT_TRUE(LoadCountryFile(ShippedFile("holidayUK.ini"), file, error));
  for (int year = 1978; year <= 2099; ++year) {
    int weekdays = 0;
    for (const NamedDay& named : EvaluateYear(file, year)) {
      const std::chrono::weekday weekday{std::chrono::sys_days{std::chrono::year_month_day{
          std::chrono::year{year}, std::chrono::month{unsigned(named.month)},
          std::chrono::day{unsigned(named.day)}}}};
      if (weekday != std::chrono::Saturday && weekday != std::chrono::Sunday) ++weekdays;
    }
    EXPECT_GE(weekdays, 8) << year;
  }
}

}  // namespace
}  // namespace sched
