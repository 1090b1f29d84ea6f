#include "platform/qt/qt_date_formatter.h"

#include <QDate>
#include <QLocale>

namespace sched {

QString ShortDateFormat() {
  QString format = QLocale().dateFormat(QLocale::ShortFormat);
  if (!format.contains("yyyy")) format.replace("yy", "yyyy");
  return format;
}

std::string QtDateFormatter::ShortDate(int year, int month, int day) const {
  return QLocale().toString(QDate(year, month, day), ShortDateFormat()).toStdString();
}

}  // namespace sched
