// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "lists/PlayListStore.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>

namespace quaverly {

class DataControl;
struct PlayerState;

/** What filling a list from a text works with. All of it outlives the command. */
struct PopulateParts
{
    Services services;
    PlayListStore &lists;
    /** The songs that the main screen shows. */
    DataControl &displayed;
    /** Its CurrentPlayListName is the list that is filled. */
    const PlayerState &state;
    /** Where the dialog starts. */
    const QString &LastMusicFolder;
    /** The plain text file that the lines without a song go to, one a line, tab, why; empty for none. */
    QString reportPath;
    /** Reads the tracks into lbDetail again. */
    std::function<void()> LoadDetailListbox;
};

/** Adds the songs that a text file names, song and artist on a line in either order, to the current list. */
class PopulateFromText final
{
public:
    explicit PopulateFromText(PopulateParts parts);

    void mnuFilePopulate_Click();

private:
    /** The tracks found; more than the list has room for were not looked for. */
    struct Found
    {
        QList<Track> tracks{};
        QStringList linesWithoutSong{};
        bool isFull = false;
    };

    void populate();
    enum class Wish { Nothing, Add, Look };
    [[nodiscard]] Wish ask();
    /** Shows what would be added; false when it is not to be. */
    [[nodiscard]] bool isWanted(Found &found, const QString &list);
    [[nodiscard]] QString readText(const QString &path);
    [[nodiscard]] Found find(const QString &text, qint64 room) const;

    PopulateParts m_parts;
    QFile m_textFile;
};

} // namespace quaverly
