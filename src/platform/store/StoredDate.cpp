// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/StoredDate.h"

using namespace Qt::StringLiterals;

namespace dao {

QString storedDate(const QDateTime &date)
{
    const QString day = date.date().toString(Qt::ISODate);
    return date.time().msecsSinceStartOfDay() < 1000 ? day : day + date.time().toString(u" HH:mm:ss"_s);
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
