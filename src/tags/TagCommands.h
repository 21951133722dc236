// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "tags/TagJob.h"

#include <functional>

class QWidget;

namespace quaverly {

class DisplayedSet;

/** What the commands on tags need; all references outlive them. */
struct TagParts
{
    Services services;
    DisplayedSet &set;
    QWidget *nameList = nullptr;
};

/** Opens the tags' screen. */
class TagCommands final
{
public:
    explicit TagCommands(const TagParts &parts) : m_parts(parts) {}

    /** For the marked songs that are displayed, else the current one. */
    void mnuTags_Click();
    /** For the record that an editor shows; @p sink puts texts into its fields. */
    void editTags(const TaggedSong &song, const RecordSink &sink, QWidget *owner);

private:
    [[nodiscard]] std::vector<TaggedSong> chosenSongs() const;
    /** Leaves out songs whose files can't be read, which is told; nothing is left when the user gives up. */
    void readFiles(std::vector<TaggedSong> &songs) const;
    void show(std::vector<TaggedSong> songs, const RecordSink &sink, QWidget *owner);

    TagParts m_parts;
};

} // namespace quaverly
