// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/KnownFiles.h"

#include "catalogue/FileFacts.h"
#include "desktop/FileHelpers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Keys that are read in one go: a few hundredths of a second. */
constexpr qint64 Portion = 10'000;

/** The catalogue may write a folder otherwise than a walk does. */
QByteArray cleanFolder(QByteArrayView folder)
{
    if (folder.contains("//") || folder.contains("/./") || folder.contains("/../") || !folder.endsWith('/'))
        return CleanFolder(EnsureBackslash(QString::fromUtf8(folder))).toUtf8();
    return folder.toByteArray();
}

} // namespace

KnownFiles::KnownFiles(dao::Database &database) : m_database(database)
{
    const auto ends =
        database.OpenRecordset(u"Select Min(RecordID) As First1, Max(RecordID) As Last1 From tblContacts"_s,
                               dao::RecordsetType::Snapshot);
    m_next = ends->value(u"First1"_s).toLongLong();
    m_last = ends->value(u"Last1"_s).isNull() ? -1 : ends->value(u"Last1"_s).toLongLong();
}

bool KnownFiles::readMore()
{
    if (m_next > m_last)
        return false;
    const qint64 end = std::min(m_last, m_next + Portion - 1);
    const auto stamps = FileFacts(m_database).stamps(m_next, end);
    auto stamp = stamps.begin();
    const auto rows = m_database.OpenRecordset(u"Select RecordID, PathName, FileName From tblContacts Where "
                                               "RecordID Between %1 And %2"_s.arg(m_next)
                                                   .arg(end),
                                               dao::RecordsetType::Dynaset);
    QByteArray written;
    QByteArray folder;
    rows->forEachRow({0, 1, 2}, [&](qint64, std::span<const QByteArrayView> texts) {
        if (texts[2].isEmpty())
            return;
        // Songs of one folder stand together and share its text.
        if (texts[1] != written) {
            written = texts[1].toByteArray();
            folder = cleanFolder(written);
        }
        KnownFile known{texts[0].toLongLong(), folder, texts[2].toByteArray(), {}};
        stamp = std::find_if(stamp, stamps.end(),
                             [&](const FileFacts::Stamp &s) { return s.recordId >= known.recordId; });
        if (stamp != stamps.end() && stamp->recordId == known.recordId)
            known.stamp = stamp->stamp;
        m_files.push_back(std::move(known));
    });
    m_next = end + 1;
    return true;
}

} // namespace quaverly
