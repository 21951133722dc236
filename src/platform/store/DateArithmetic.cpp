// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/DateArithmetic.h"

#include "platform/text/Text.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace dao {

namespace {

/** Seconds in an interval of fixed length; 0 for any other. */
qint64 secondsIn(const QString &interval)
{
    if (interval == "s"_L1)
        return 1;
    if (interval == "n"_L1)
        return 60;
    if (interval == "h"_L1)
        return 3600;
    if (interval == "d"_L1 || interval == "y"_L1 || interval == "w"_L1)
        return 86400;
    return 0;
}

qint64 monthsOf(const QDate &date)
{
    return date.year() * 12LL + date.month() - 1;
}

qint64 weekOf(const QDate &date)
{
    return (date.toJulianDay() + 1) / 7;
}

} // namespace

std::optional<QDateTime> dateAdd(const QString &interval, int number, const QDateTime &date)
{
    const QString unit = interval.toLower();
    if (unit == "yyyy"_L1)
        return date.addYears(number);
    if (unit == "q"_L1)
        return date.addMonths(number * 3);
    if (unit == "m"_L1)
        return date.addMonths(number);
    if (unit == "ww"_L1)
        return date.addDays(7LL * number);
    if (const qint64 seconds = secondsIn(unit); seconds > 0)
        return date.addSecs(seconds * number);
    return std::nullopt;
}

std::optional<qint64> dateDiff(const QString &interval, const QDateTime &from, const QDateTime &to)
{
    const QString unit = interval.toLower();
    if (unit == "yyyy"_L1)
        return to.date().year() - from.date().year();
    if (unit == "q"_L1)
        return monthsOf(to.date()) / 3 - monthsOf(from.date()) / 3;
    if (unit == "m"_L1)
        return monthsOf(to.date()) - monthsOf(from.date());
    if (unit == "ww"_L1)
        return weekOf(to.date()) - weekOf(from.date());
    if (unit == "w"_L1)
        return from.daysTo(to) / 7;
    const auto count = [](const QDateTime &date, qint64 unitSeconds) {
        return static_cast<qint64>(std::floor(double(date.toSecsSinceEpoch()) / double(unitSeconds)));
    };
    if (const qint64 seconds = secondsIn(unit); seconds > 0)
        return count(to, seconds) - count(from, seconds);
    return std::nullopt;
}

std::optional<qint64> datePart(const QString &interval, const QDateTime &date)
{
    const QString unit = interval.toLower();
    if (unit == "yyyy"_L1)
        return date.date().year();
    if (unit == "q"_L1)
        return (date.date().month() + 2) / 3;
    if (unit == "m"_L1)
        return date.date().month();
    if (unit == "y"_L1)
        return date.date().dayOfYear();
    if (unit == "d"_L1)
        return date.date().day();
    if (unit == "w"_L1)
        return date.date().dayOfWeek() % 7 + 1;
    if (unit == "h"_L1)
        return date.time().hour();
    if (unit == "n"_L1)
        return date.time().minute();
    if (unit == "s"_L1)
        return date.time().second();
    return std::nullopt;
}

QString formatDate(const QDateTime &date, const QString &form)
{
    const QString lower = form.toLower();
    if (lower == "short date"_L1)
        return quaverly::shortDate(date.date().startOfDay(Qt::UTC));
    if (lower == "long date"_L1)
        return QLocale::system().toString(date.date(), QLocale::LongFormat);
    if (lower == "general date"_L1)
        return quaverly::shortDate(date);
    // Qt writes minutes and months the other way round: n is a minute here, m a month.
    QString qtForm;
    for (const QChar c : lower)
        qtForm += c == u'm' ? u'M' : c == u'n' ? u'm' : c == u'h' ? u'H' : c;
    return QLocale::c().toString(date, qtForm);
}

QString formatNumber(double number, const QString &form)
{
    QString pattern = form.toLower();
    if (pattern == "fixed"_L1)
        pattern = u"0.00"_s;
    else if (pattern == "standard"_L1)
        pattern = u"#,##0.00"_s;
    else if (pattern == "percent"_L1)
        pattern = u"0.00%"_s;
    if (!pattern.contains(u'0') && !pattern.contains(u'#'))
        return QString::number(number, 'g', 15);
    if (pattern.contains(u'%'))
        number *= 100;
    const qsizetype point = pattern.indexOf(u'.');
    const QStringView behind = point < 0 ? QStringView() : QStringView(pattern).mid(point + 1);
    const auto fixedPlaces = static_cast<int>(behind.count(u'0'));
    const auto places = std::min(15, fixedPlaces + static_cast<int>(behind.count(u'#')));
    const auto whole =
        static_cast<int>((point < 0 ? QStringView(pattern) : QStringView(pattern).left(point)).count(u'0'));
    QLocale locale = QLocale::c();
    locale.setNumberOptions(pattern.contains(u',') ? QLocale::DefaultNumberOptions
                                                   : QLocale::OmitGroupSeparator);
    QString text = locale.toString(std::abs(number), 'f', places);
    for (int i = places; i > fixedPlaces && text.endsWith(u'0'); --i)
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    const auto digits = [&] { return point < 0 || !text.contains(u'.') ? text.size() : text.indexOf(u'.'); };
    while (digits() < whole)
        text.prepend(u'0');
    if (whole == 0 && text.startsWith(u'0') && (text.size() == 1 || text[1] == u'.'))
        text.remove(0, 1);
    const bool isZero =
        std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'1' && c <= u'9'; });
    if (number < 0 && !isZero)
        text.prepend(u'-');
    return pattern.contains(u'%') ? text + u'%' : text;
}

QString formatText(const QString &text, const QString &form)
{
    if (form == ">"_L1)
        return text.toUpper();
    return form == "<"_L1 ? text.toLower() : text;
}

QString trimBlanks(const QString &text, bool front, bool back)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (front && first < last && text[first] == u' ')
        ++first;
    while (back && last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

} // namespace dao
