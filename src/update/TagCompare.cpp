// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/TagCompare.h"

#include "catalogue/SongFields.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** What the program puts in the place of a text that the file doesn't have. */
bool isStandIn(const QString &field, const SongOnDisk &read)
{
    const QString text = read.song.text(field);
    return (field == "SongName"_L1 && text == QString::fromUtf8(read.file.name)) ||
           (field == "Artist"_L1 && text == "Unknown"_L1);
}

/** False when nobody has written to the file since the row was. */
bool wasWrittenSince(const QDateTime &rowUpdated, const SongOnDisk &read)
{
    if (!rowUpdated.isValid())
        return true;
    QDateTime written = QDateTime::fromMSecsSinceEpoch(read.stamp->modified / 1'000'000);
    written.setTimeSpec(Qt::UTC);
    // The row's time has no parts of a second.
    return written >= rowUpdated.addSecs(1);
}

class Comparison final
{
public:
    Comparison(const KnownTags &known, const SongOnDisk &read) : m_known(known), m_read(read) {}

    std::vector<UpdateRow> run()
    {
        const bool isKnown = m_known.fact && m_known.fact->tags.isKnown();
        if (!isKnown && !wasWrittenSince(m_known.updated, m_read))
            return {};
        const auto fields = fieldsFromFile();
        for (std::size_t place = 0; place < fields.size(); ++place)
            compareField(static_cast<int>(place), fields[place]);
        const QString size = u"FileSize"_s;
        if (m_rows.empty() && isKnown && m_read.song.text(size) != m_known.textOf(size))
            add(size, {}, true);
        return std::move(m_rows);
    }

private:
    void compareField(int place, const QString &field)
    {
        // Not every reader knows every field.
        if (m_read.song.value(field).isNull())
            return;
        const QString now = m_read.song.text(field);
        const QString here = m_known.textOf(field);
        if (now == here)
            return;
        const TagsRead before = m_known.fact ? m_known.fact->tags : TagsRead();
        const auto fileIsAsBefore = before.was(place, now);
        const auto rowIsAsBefore = before.was(place, here);
        if (!fileIsAsBefore)
            add(field, u"Changed in the file or here, nobody knows"_s, false);
        else if (*fileIsAsBefore)
            return;
        else if (!*rowIsAsBefore)
            add(field, u"Changed here too"_s, false);
        else if (isStandIn(field, m_read))
            add(field, u"The file has none any more"_s, false);
        else
            add(field, {}, true);
    }

    void add(const QString &field, const QString &remark, bool isTicked)
    {
        m_rows.push_back({.kind = UpdateKind::Changed,
                          .recordId = m_known.recordId,
                          .song = m_known.textOf(u"SongName"_s),
                          .artist = m_known.textOf(u"Artist"_s),
                          .field = field,
                          .before = m_known.textOf(field),
                          .after = m_read.song.text(field),
                          .remark = remark,
                          .isTicked = isTicked,
                          .file = m_read.file});
    }

    const KnownTags &m_known;
    const SongOnDisk &m_read;
    std::vector<UpdateRow> m_rows;
};

} // namespace

std::vector<UpdateRow> compareTags(const KnownTags &known, const SongOnDisk &read)
{
    return Comparison(known, read).run();
}

void keepNameOf(SongOnDisk &read, const QString &formerFileName)
{
    if (isStandIn(u"SongName"_s, read))
        read.song.write(u"SongName"_s, formerFileName);
}

} // namespace quaverly
