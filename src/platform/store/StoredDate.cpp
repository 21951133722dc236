// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/StoredDate.h"

namespace dao {

namespace {

/** @p number as @p count digits at @p place. */
void putDigits(QChar *place, int number, int count)
{
    for (int i = count; i-- > 0; number /= 10)
        place[i] = QChar(u'0' + number % 10);
}

} // namespace

// Qt's own formatting takes twenty times as long, and a scan writes a date with every song.
QString storedDate(const QDateTime &date)
{
    int year = 0;
    int month = 0;
    int day = 0;
    date.date().getDate(&year, &month, &day);
    if (!date.date().isValid() || year < 0 || year > 9999)
        return {};
    const int seconds = date.time().msecsSinceStartOfDay() / 1000;
    QString text = QStringLiteral("0000-00-00 00:00:00");
    if (seconds <= 0)
        text.truncate(10);
    QChar *place = text.data();
    putDigits(place, year, 4);
    putDigits(place + 5, month, 2);
    putDigits(place + 8, day, 2);
    if (seconds > 0) {
        putDigits(place + 11, seconds / 3600, 2);
        putDigits(place + 14, seconds / 60 % 60, 2);
        putDigits(place + 17, seconds % 60, 2);
    }
    return text;
}

QDateTime dateFromStored(const QString &stored)
{
    const QDate day = QDate::fromString(stored.left(10), Qt::ISODate);
    if (!day.isValid())
        return {};
    if (stored.size() == 10)
        return day.startOfDay(Qt::UTC);
    const QTime time = QTime::fromString(stored.mid(11), Qt::ISODate);
    return time.isValid() ? QDateTime(day, time, Qt::UTC) : QDateTime();
}

} // namespace dao
