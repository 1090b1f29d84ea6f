#include "platform/qt/qt_date_formatter.h"

#include <QDate>
#include <QLocale>

namespace sched {

std::string QtDateFormatter::ShortDate(int year, int month, int day) const {
  // Four-digit years always: the calendar spans two centuries.
  QString format = QLocale().dateFormat(QLocale::ShortFormat);
  if (!format.contains("yyyy")) format.replace("yy", "yyyy");
  return QLocale().toString(QDate(year, month, day), format).toStdString();
}

}  // namespace sched
