// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FileFacts.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

// The stored digests stand in this order: what comes later goes to the end.
constexpr std::array Fields{"SongName"_L1,  "Artist"_L1,      "Composer"_L1, "AlbumName"_L1, "Genre"_L1,
                            "Duration"_L1,  "Year"_L1,        "Notes"_L1,    "BPM"_L1,       "bitRate"_L1,
                            "TrackText"_L1, "AlbumArtist"_L1, "Disc"_L1};

constexpr int DigestLength = 4;

/** Four characters of six bits each: of sixteen million changes of a text one goes by unseen. */
void appendDigest(QString &to, QStringView text)
{
    static constexpr char16_t Digits[] = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    quint64 hash = 0xcbf29ce484222325;
    for (const QChar c : text)
        hash = (hash ^ c.unicode()) * 0x100000001b3;
    hash ^= hash >> 29;
    for (int digit = 0; digit < DigestLength; ++digit)
        to += QChar(Digits[hash >> (6 * digit + 8) & 63]);
}

} // namespace

std::span<const QLatin1StringView> fieldsFromFile()
{
    return Fields;
}

TagsRead TagsRead::of(const std::function<QString(const QString &field)> &textOf)
{
    TagsRead tags;
    tags.m_text.reserve(DigestLength * std::ssize(Fields));
    for (const QLatin1StringView field : Fields)
        appendDigest(tags.m_text, textOf(field));
    return tags;
}

std::optional<bool> TagsRead::was(int field, const QString &text) const
{
    const QStringView stored = QStringView(m_text).mid(qsizetype(DigestLength) * field, DigestLength);
    if (stored.size() < DigestLength)
        return {};
    QString now;
    appendDigest(now, text);
    return stored == now;
}

QString TagsRead::ofField(QLatin1StringView field) const
{
    return m_text.mid(DigestLength * (std::ranges::find(Fields, field) - Fields.begin()), DigestLength);
}

FileFacts::FileFacts(dao::Database &database) : m_database(database)
{}

dao::Recordset &FileFacts::rows()
{
    if (!m_rows) {
        m_rows = m_database.OpenRecordset(u"tblFiles"_s, dao::RecordsetType::Table);
        m_rows->setIndex(u"PrimaryKey"_s);
    }
    return *m_rows;
}

bool FileFacts::seek(qint64 recordId)
{
    rows().Seek(u"="_s, {recordId});
    return !rows().NoMatch();
}

void FileFacts::write(const FileFact &fact)
{
    dao::Recordset &row = rows();
    row.setValue(u"RecordID"_s, fact.recordId);
    row.setValue(u"Size"_s, fact.stamp.size);
    row.setValue(u"MTime"_s, fact.stamp.modified);
    row.setValue(u"Inode"_s, fact.stamp.inode);
    row.setValue(u"Device"_s, fact.stamp.device);
    row.setValue(u"SoundHash"_s, fact.sound.isEmpty() ? QVariant() : fact.sound);
    row.setValue(u"TagsRead"_s, fact.tags.text());
    row.Update();
}

void FileFacts::add(const FileFact &fact)
{
    try {
        rows().AddNew();
        write(fact);
    } catch (const dao::DaoError &error) {
        if (error.number != dao::DuplicateKey)
            throw;
        // Left by a song that once had this key.
        rows().CancelUpdate();
        put(fact);
    }
}

void FileFacts::put(const FileFact &fact)
{
    if (seek(fact.recordId))
        rows().Edit();
    else
        rows().AddNew();
    write(fact);
}

std::optional<FileFact> FileFacts::of(qint64 recordId)
{
    if (!seek(recordId))
        return {};
    const dao::Recordset &row = rows();
    return FileFact{recordId,
                    {row.value(u"Size"_s).toLongLong(), row.value(u"MTime"_s).toLongLong(),
                     row.value(u"Inode"_s).toLongLong(), row.value(u"Device"_s).toLongLong()},
                    row.text(u"SoundHash"_s),
                    TagsRead(row.text(u"TagsRead"_s))};
}

void FileFacts::tidy()
{
    m_database.Execute(u"Delete * From tblFiles Where RecordID Not In (Select RecordID From tblContacts)"_s);
}

std::vector<FileFacts::Stamp> FileFacts::stamps(qint64 first, qint64 last)
{
    const auto found =
        m_database.OpenRecordset(u"Select RecordID, Size, MTime, Inode, Device From tblFiles Where RecordID "
                                 "Between %1 And %2"_s.arg(first)
                                     .arg(last),
                                 dao::RecordsetType::Dynaset);
    std::vector<Stamp> stamps;
    stamps.reserve(static_cast<std::size_t>(found->RecordCount()));
    found->forEachRow({0, 1, 2, 3, 4}, [&](qint64, std::span<const QByteArrayView> texts) {
        stamps.push_back(
            {texts[0].toLongLong(),
             {texts[1].toLongLong(), texts[2].toLongLong(), texts[3].toLongLong(), texts[4].toLongLong()}});
    });
    return stamps;
}

} // namespace quaverly
