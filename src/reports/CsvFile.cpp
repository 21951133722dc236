// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/CsvFile.h"

#include "platform/text/Text.h"
#include "reports/Blanks.h"

#include <QDateTime>
#include <QStringConverter>

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

/** In the file's order; the notes, last, only on request. */
constexpr Column Columns[] = {
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

std::span<const Column> columns(bool withNotes)
{
    return std::span(Columns).first(std::size(Columns) - (withNotes ? 0 : 1));
}

QList<int> placesOf(const dao::Recordset &songs, bool withNotes)
{
    QList<int> places;
    for (const Column &column : columns(withNotes)) {
        const int place = songs.fieldIndex(column.field);
        if (place < 0)
            throw dao::DaoError(dao::ItemNotFound,
                                u"Item not found in this collection: %1."_s.arg(column.field));
        places.append(place);
    }
    return places;
}

/** The only escaping: no field holds a double quote. */
void appendQuoted(QByteArray &out, QStringView text)
{
    constexpr qsizetype MostBytesOfCharacter = 3;
    const QStringView kept = withoutOuterBlanks(text);
    const qsizetype at = out.size();
    out.resize(at + kept.size() * MostBytesOfCharacter + 2);
    char *begin = out.data() + at;
    *begin = '"';
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    char *end = encoder.appendToBuffer(begin + 1, kept);
    std::replace(begin + 1, end, '"', '\'');
    *end++ = '"';
    out.truncate(end - out.constData());
}

QString dayOf(const QDateTime &date)
{
    return shortDate(QDateTime(date.date(), QTime(0, 0), Qt::UTC));
}

} // namespace

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
    for (const Column &column : columns(withNotes)) {
        appendQuoted(m_out, QString(column.header));
        m_out += ',';
    }
    m_out.chop(1);
    m_out += "\r\n";
    const qint64 count = songs.RecordCount();
    for (qint64 row = 0; row < count; ++row) {
        writeRow(songs, row, places);
        if (m_out.size() > LongOutput) {
            flush();
            progress(row);
        }
    }
    flush();
}

void CsvFile::writeRow(const dao::Recordset &songs, qint64 row, const QList<int> &fields)
{
    for (const int field : fields) {
        const QVariant value = songs.valueAt(row, field);
        if (value.typeId() == QMetaType::QDateTime)
            appendQuoted(m_out, dayOf(value.toDateTime()));
        else
            appendQuoted(m_out, value.toString());
        m_out += ',';
    }
    m_out.chop(1);
    m_out += "\r\n";
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
