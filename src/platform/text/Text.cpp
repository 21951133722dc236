// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Text.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringDecoder>

#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

QString NullToEmpty(const QVariant &value)
{
    return value.isNull() ? QString() : value.toString();
}

QVariant EmptyToNull(const QString &text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QString ReplaceText(const QString &source, const QString &find, const QString &replacement)
{
    return find.isEmpty() ? source : QString(source).replace(find, replacement);
}

bool isGreaterThanBlank(const QString &text)
{
    return text > u" "_s;
}

bool isGreaterThanBlank(const QVariant &value)
{
    return isGreaterThanBlank(NullToEmpty(value));
}

bool IsNumeric(const QString &text)
{
    static const QRegularExpression number(
        uR"(\A\s*[-+]?\s*(\d{1,3}(,\d{3})+(\.\d*)?|\d+\.?\d*|\.\d+)([eEdD][-+]?\d{1,3})?\s*\z)"_s);
    return number.match(text).hasMatch();
}

double Val(const QString &text)
{
    QString kept;
    for (const QChar c : text) {
        if (!c.isSpace())
            kept += c;
    }
    static const QRegularExpression number(uR"(\A[-+]?(\d+\.?\d*|\.\d+)([eEdD][-+]?\d+)?)"_s);
    QString found = number.match(kept).captured(0).toLower();
    found.replace(u'd', u'e');
    return found.toDouble();
}

namespace {

/** Two-digit years fall between 1930 and 2029, as the system's date window has it. */
int fullYear(QStringView digits)
{
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

/** True when the locale writes the day in front of the month. */
bool dayComesFirst()
{
    const QString form = QLocale::system().dateFormat(QLocale::ShortFormat);
    // A form that spells the month out says nothing about figures.
    return !form.contains("MMM"_L1) && form.indexOf(u'd') < form.indexOf(u'M');
}

std::optional<QDate> dateOf(QStringView text)
{
    static const QRegularExpression iso(uR"(\A(\d{4})[-/.](\d{1,2})[-/.](\d{1,2})\z)"_s);
    static const QRegularExpression parts(uR"(\A(\d{1,2})[-/. ](\d{1,2})[-/. ](\d{4}|\d{2})\z)"_s);
    if (const auto m = iso.match(text); m.hasMatch()) {
        const QDate date(m.capturedView(1).toInt(), m.capturedView(2).toInt(), m.capturedView(3).toInt());
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    if (const auto m = parts.match(text); m.hasMatch()) {
        const int year = fullYear(m.capturedView(3));
        const int first = m.capturedView(1).toInt();
        const int second = m.capturedView(2).toInt();
        const bool dayFirst = dayComesFirst();
        const QDate asLocale(year, dayFirst ? second : first, dayFirst ? first : second);
        const QDate otherWay(year, dayFirst ? first : second, dayFirst ? second : first);
        if (asLocale.isValid())
            return asLocale;
        return otherWay.isValid() ? std::optional(otherWay) : std::nullopt;
    }
    for (const auto form : {QLocale::ShortFormat, QLocale::LongFormat}) {
        if (const QDate date = QLocale::system().toDate(text.toString(), form); date.isValid())
            return date;
    }
    static constexpr std::array named{"d MMM yyyy", "d MMMM yyyy", "MMM d, yyyy", "MMMM d, yyyy",
                                      "d-MMM-yyyy"};
    for (const char *form : named) {
        if (const QDate date = QLocale::c().toDate(text.toString(), QLatin1StringView(form)); date.isValid())
            return date;
    }
    return std::nullopt;
}

std::optional<QTime> timeOf(QStringView text)
{
    static constexpr std::array forms{"H:mm:ss", "H:mm", "h:mm:ss AP", "h:mm AP", "H:mm:ss.zzz"};
    for (const char *form : forms) {
        if (const QTime time = QLocale::c().toTime(text.toString(), QLatin1StringView(form)); time.isValid())
            return time;
    }
    return std::nullopt;
}

} // namespace

std::optional<QDateTime> parseDate(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.size() > 64)
        return std::nullopt;
    if (const auto date = dateOf(trimmed))
        return date->startOfDay(Qt::UTC);
    static const QRegularExpression split(uR"(\A(.+?)[ T]+(\d{1,2}:\d{2}.*)\z)"_s);
    const auto m = split.match(trimmed);
    if (!m.hasMatch())
        return std::nullopt;
    const auto date = dateOf(m.capturedView(1));
    const auto time = timeOf(m.capturedView(2));
    if (!date || !time)
        return std::nullopt;
    return QDateTime(*date, *time, Qt::UTC);
}

bool IsDate(const QString &text)
{
    return parseDate(text).has_value();
}

QString shortDate(const QDateTime &date)
{
    if (!date.isValid())
        return {};
    static const QString form = [] {
        QString f = QLocale::system().dateFormat(QLocale::ShortFormat);
        if (!f.contains("yyyy"_L1))
            f.replace("yy"_L1, "yyyy"_L1);
        return f;
    }();
    const QString day = date.date().toString(form);
    return date.time() == QTime(0, 0) ? day : day + date.time().toString(u" HH:mm:ss"_s);
}

QString fromSystemCodePage(QByteArrayView bytes)
{
    // Stateless: a character cut off at the end is wrong, not still to come.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    if (!utf8.hasError())
        return text;
    // Windows-1252 differs from Latin-1 only in the 32 codes from 0x80 on.
    static constexpr std::u16string_view high = u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021"
                                                u"\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
                                                u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014"
                                                u"\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
    text = QString::fromLatin1(bytes);
    for (QChar &c : text) {
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0)
            c = QChar(high[c.unicode() - 0x80]);
    }
    return text;
}

} // namespace quaverly
