// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/CsvFile.h"

#include "catalogue/SongFields.h"
#include "platform/text/Blanks.h"
#include "platform/text/Text.h"

#include <QDateTime>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

struct Column
{
    QLatin1StringView header;
    QLatin1StringView field;
};

/** In the file's order; the notes, last of these, only on request. */
constexpr Column CsvColumns[] = {
    {"SongName"_L1, "SongName"_L1},
    {"Artist"_L1, "Artist"_L1},
    {"Composer"_L1, "Composer"_L1},
    {"AlbumName"_L1, "AlbumName"_L1},
    {"Year"_L1, "Year"_L1},
    {"Genre"_L1, "Genre"_L1},
    {"Duration"_L1, "Duration"_L1},
    {"Rating"_L1, "Rating"_L1},
    {"PathName"_L1, "PathName"_L1},
    {"FileName"_L1, "FileName"_L1},
    {"Date Record Last Updated"_L1, "DateUpdated"_L1},
    {"DatePurchased"_L1, "PurchaseDate"_L1},
    {"Date2_Desc"_L1, "Date2_Desc"_L1},
    {"Date2"_L1, "Date2"_L1},
    {"MiscField1_Desc"_L1, "MiscField1_Desc"_L1},
    {"MiscField1"_L1, "MiscField1"_L1},
    {"MiscField2_Desc"_L1, "MiscField2_Desc"_L1},
    {"MiscField2"_L1, "MiscField2"_L1},
    {"MiscField3_Desc"_L1, "MiscField3_Desc"_L1},
    {"MiscField3"_L1, "MiscField3"_L1},
    {"Code"_L1, "Code"_L1},
    {"Notes"_L1, "Notes"_L1},
};

constexpr qsizetype LongOutput = 1 << 16;

QList<Column> columns(const dao::Recordset &songs, bool withNotes)
{
    const auto first = std::span(CsvColumns).first(std::size(CsvColumns) - (withNotes ? 0 : 1));
    QList<Column> all(first.begin(), first.end());
    for (const SongField &field : laterFields()) {
        // An older catalogue that can't be written to lacks them.
        if (songs.fieldIndex(field.name) >= 0)
            all.append({field.name, field.name});
    }
    return all;
}

QList<int> placesOf(const dao::Recordset &songs, bool withNotes)
{
    QList<int> places;
    for (const Column &column : columns(songs, withNotes)) {
        const int place = songs.fieldIndex(column.field);
        if (place < 0)
            throw dao::DaoError(dao::ItemNotFound,
                                u"Item not found in this collection: %1."_s.arg(column.field));
        places.append(place);
    }
    return places;
}

/** The only escaping: no field holds a double quote. */
void appendQuoted(QByteArray &out, QByteArrayView text)
{
    out += '"';
    const qsizetype at = out.size();
    out.append(withoutOuterBlanks(text));
    std::replace(out.data() + at, out.data() + out.size(), '"', '\'');
    out += '"';
}

} // namespace

QByteArrayView ShortDates::of(QByteArrayView stored)
{
    // Formatting a date takes longer than all else of a row, and there are far fewer days than songs.
    constexpr qsizetype DayLength = 10;
    const QByteArray day = stored.first(std::min(DayLength, stored.size())).toByteArray();
    auto known = m_days.constFind(day);
    if (known == m_days.cend()) {
        const QDate date = QDate::fromString(QString::fromLatin1(day), Qt::ISODate);
        const QByteArray shown = shortDate(QDateTime(date, QTime(0, 0), Qt::UTC)).toUtf8();
        known = m_days.insert(day, date.isValid() ? shown : stored.toByteArray());
    }
    return *known;
}

CsvFile::CsvFile(const QString &path) : m_file(path)
{
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return;
    throw dao::DaoError(dao::PathFileAccess,
                        u"Path/File access error: '%1'.  %2"_s.arg(path, m_file.errorString()));
}

void CsvFile::write(const dao::Recordset &songs, bool withNotes, const std::function<void(qint64)> &progress)
{
    const QList<int> places = placesOf(songs, withNotes);
    for (const Column &column : columns(songs, withNotes)) {
        appendQuoted(m_out, column.header);
        m_out += ',';
    }
    m_out.chop(1);
    m_out += "\r\n";
    QList<bool> isDate;
    for (const int place : places)
        isDate.append(songs.Fields().at(place).type == dao::FieldType::Date);
    songs.forEachRow(places, [&](qint64 row, std::span<const QByteArrayView> texts) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            appendQuoted(m_out, isDate[static_cast<qsizetype>(i)] ? m_dates.of(texts[i]) : texts[i]);
            m_out += i + 1 < texts.size() ? "," : "\r\n";
        }
        if (m_out.size() > LongOutput) {
            flush();
            progress(row);
        }
    });
    flush();
}

void CsvFile::flush()
{
    for (QByteArrayView rest = m_out; !rest.isEmpty();) {
        const qint64 written = m_file.write(rest.data(), rest.size());
        if (written <= 0)
            throw dao::DaoError(m_file.error() == QFileDevice::ResourceError ? dao::DiskFull
                                                                             : dao::PathFileAccess,
                                u"'%1' can't be written: %2."_s.arg(m_file.fileName(), m_file.errorString()));
        rest = rest.sliced(written);
    }
    m_out.clear();
}

void CsvFile::close()
{
    m_file.close();
    if (m_file.error() != QFileDevice::NoError)
        throw dao::DaoError(dao::PathFileAccess, m_file.errorString());
}

} // namespace quaverly
