#include "holidays/easter.h"

namespace sched {

// The anonymous Gregorian computus (Meeus, Jones and Butcher); exact for every Gregorian year.
CivilDate WesternEaster(int year) {
  const int a = year % 19;
  const int b = year / 100;
  const int c = year % 100;
  const int d = b / 4;
  const int e = b % 4;
  const int f = (b + 8) / 25;
  const int g = (b - f + 1) / 3;
  const int h = (19 * a + b - d - g + 15) % 30;
  const int i = c / 4;
  const int k = c % 4;
  const int l = (32 + 2 * e + 2 * i - h - k) % 7;
  const int m = (a + 11 * h + 22 * l) / 451;
  const int month = (h + l - 7 * m + 114) / 31;
  const int day = (h + l - 7 * m + 114) % 31 + 1;
  return {year, month, day};
}

}  // namespace sched
