// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/UpdateList.h"

#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace quaverly {

std::array<UpdateCount, UpdateKinds> UpdateList::counts() const
{
    std::array<UpdateCount, UpdateKinds> counts{};
    std::array<QSet<qint64>, UpdateKinds> songs;
    std::array<QSet<qint64>, UpdateKinds> ticked;
    for (const UpdateRow &row : rows) {
        const auto kind = static_cast<std::size_t>(row.kind);
        ++counts[kind].rows;
        // What has no song stands for one each.
        if (row.recordId == 0) {
            ++counts[kind].songs;
            counts[kind].ticked += row.isTicked ? 1 : 0;
            continue;
        }
        songs[kind].insert(row.recordId);
        if (row.isTicked)
            ticked[kind].insert(row.recordId);
    }
    for (std::size_t kind = 0; kind < UpdateKinds; ++kind) {
        counts[kind].songs += static_cast<int>(songs[kind].size());
        counts[kind].ticked += static_cast<int>(ticked[kind].size());
    }
    return counts;
}

QString updateWords(const UpdateList &list, int UpdateCount::*count)
{
    static constexpr std::array Words{"new"_L1, "changed"_L1, "moved"_L1, "gone"_L1, "unreadable"_L1};
    const auto counts = list.counts();
    QStringList parts;
    for (std::size_t kind = 0; kind < UpdateKinds; ++kind) {
        if (counts[kind].*count > 0)
            parts.append(QString::number(counts[kind].*count) + u' ' + Words[kind]);
    }
    return parts.join(u", "_s);
}

SongFile songFileOf(const DiskFile &file)
{
    return {QString::fromUtf8(file.folder), QString::fromUtf8(file.name)};
}

} // namespace quaverly
