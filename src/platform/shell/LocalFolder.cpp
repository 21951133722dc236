// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/LocalFolder.h"

#include "platform/shell/Columns.h"
#include "platform/shell/Directory.h"

#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

// Details are kept for items near the last one asked for; others are read again when they must.
constexpr size_t MostKept = 128;

} // namespace

int LocalItem::songType() const
{
    if (m_songType == NotLookedAt)
        m_songType = m_entry.kind == EntryKind::Folder ? -1 : songTypeOf(m_entry.name);
    return m_songType;
}

QString LocalItem::name() const
{
    const bool shortened = m_folder->traits().hideFileExt && m_entry.kind != EntryKind::Folder;
    return shortened ? withoutKnownExtension(m_entry.name) : m_entry.name;
}

std::optional<FileStamp> LocalItem::stamp() const
{
    if (!m_stamp && m_entry.kind != EntryKind::Folder)
        m_stamp = stampOf(m_folder->pathOf(m_entry.name));
    return m_stamp;
}

QString LocalItem::detail(int column) const
{
    switch (column) {
    case SizeColumn: {
        const auto file = stamp();
        return file ? sizeText(file->size) : QString();
    }
    case TypeColumn:
        return typeText(m_entry.name, m_entry.kind);
    case AttributesColumn:
        return attributesText(m_entry.name, m_entry.kind);
    default:
        break;
    }
    const DetailText text = detailColumn(column, m_folder->versionMajor());
    return text && songType() >= 0 ? text(m_folder->detailsOf(m_index)) : QString();
}

QString LocalItem::readFailure() const
{
    return songType() >= 0 ? m_folder->detailsOf(m_index).failure : u"Not a sound file"_s;
}

LocalFolder::LocalFolder(const QString &path, std::vector<Entry> entries, const NaturalOrder &order,
                         const ShellTraits &traits, std::shared_ptr<Lookahead> ahead)
    : m_path(systemPath(path.endsWith(quaverly::PathSeparator) ? path : path + quaverly::PathSeparator)),
      m_traits(traits), m_ahead(std::move(ahead)), m_songs(entries.size())
{
    order.sort(entries);
    m_items.reserve(entries.size());
    for (Entry &entry : entries)
        m_items.emplace_back(*this, std::ssize(m_items), std::move(entry));
}

LocalFolder::~LocalFolder()
{
    leave(m_current);
    m_ahead->gone(*this, m_waiting);
    for (const Song &song : m_songs) {
        if (song.slot)
            song.slot->abandon();
    }
}

const Item &LocalFolder::item(qsizetype index)
{
    if (index != m_current)
        leave(m_current);
    m_current = index;
    return at(index);
}

/** Whether the next songs are worth reading ahead shows by the ones that are left. */
void LocalFolder::leave(qsizetype index)
{
    if (index >= 0 && m_ahead->isOn() && songTypeAt(index) >= 0 && !songAt(index).asked)
        m_ahead->passedBy(*this, index);
}

std::shared_ptr<DetailSlot> &LocalFolder::slotOf(qsizetype index)
{
    auto &slot = songAt(index).slot;
    if (!slot) {
        slot = std::make_shared<DetailSlot>(pathOf(at(index).entry().name));
        keep(index);
    }
    return slot;
}

void LocalFolder::keep(qsizetype index)
{
    m_kept.push_back(index);
    if (m_kept.size() <= MostKept)
        return;
    auto &oldest = songAt(m_kept.front()).slot;
    oldest->abandon();
    oldest.reset();
    m_kept.pop_front();
}

const SongDetails &LocalFolder::detailsOf(qsizetype index)
{
    Song &song = songAt(index);
    if (index == m_lastRead && song.slot)
        return song.slot->details();
    DetailSlot &slot = *slotOf(index);
    if (m_ahead->isOn() && !song.asked) {
        song.asked = true;
        m_ahead->asked(*this, index);
    }
    m_lastRead = index;
    return m_ahead->detailsOf(slot);
}

std::shared_ptr<DetailSlot> LocalFolder::putOnWaiting(qsizetype index)
{
    Song &song = songAt(index);
    if (song.slot || song.asked)
        return nullptr;
    song.waiting = true;
    ++m_waiting;
    return slotOf(index);
}

bool LocalFolder::takeFromWaiting(qsizetype index)
{
    Song &song = songAt(index);
    if (!song.waiting)
        return false;
    song.waiting = false;
    --m_waiting;
    return true;
}

} // namespace shell
