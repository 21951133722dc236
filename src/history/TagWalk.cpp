// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/TagWalk.h"

#include "catalogue/Catalogue.h"
#include "platform/shell/TagWriter.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

shell::FilePatch patchOf(const dao::FileTagsChange &file, WalkDirection direction)
{
    const auto patch = shell::FilePatch::unpacked(direction == WalkDirection::Back ? file.back : file.again);
    if (!patch)
        throw dao::DaoError(dao::CannotOpenFile,
                            u"What the history keeps of the tags of \"%1\" is damaged."_s.arg(file.path));
    return *patch;
}

} // namespace

TagWalk::TagWalk(Catalogue &catalogue, const dao::Change &change, WalkDirection direction)
    : m_catalogue(catalogue), m_notes(catalogue), m_direction(direction),
      m_files(dao::History(*catalogue.CatalogueDb).taggedFiles(change))
{
    if (direction == WalkDirection::Back)
        std::ranges::reverse(m_files);
}

QStringList TagWalk::obstacles() const
{
    const dao::History history(*m_catalogue.CatalogueDb);
    QStringList all;
    // A file that the change wrote more than once passes through versions in between.
    QSet<QString> seen;
    for (const qint64 key : m_files) {
        const dao::FileTagsChange file = history.taggedFile(key);
        if (seen.contains(file.path))
            continue;
        seen.insert(file.path);
        const shell::PatchState state = shell::stateFor(file.path, patchOf(file, m_direction));
        if (state == shell::PatchState::NoFile)
            all += u"The file \"%1\" is no longer there."_s.arg(file.path);
        else if (state == shell::PatchState::OtherVersion)
            all += u"The file \"%1\" was changed since by another program."_s.arg(file.path);
    }
    return all;
}

void TagWalk::move(qint64 key, WalkDirection direction)
{
    const dao::FileTagsChange file = dao::History(*m_catalogue.CatalogueDb).taggedFile(key);
    m_notes.apply(file.song, file.path, patchOf(file, direction));
}

void TagWalk::go()
{
    try {
        for (; m_gone < m_files.size(); ++m_gone)
            move(m_files[m_gone], m_direction);
    } catch (const dao::DaoError &) {
        giveUp();
        throw;
    }
}

void TagWalk::giveUp()
{
    const WalkDirection other =
        m_direction == WalkDirection::Back ? WalkDirection::Again : WalkDirection::Back;
    for (; m_gone > 0; --m_gone) {
        try {
            move(m_files[m_gone - 1], other);
        } catch (const dao::DaoError &) {
            // Whole as it is; the next attempt finds it where it wants it.
        }
    }
}

} // namespace quaverly
