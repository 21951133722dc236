// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "lists/PlayListStore.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace quaverly {

class DisplayedSet;
class WorkingWindow;

/** What the commands that carry a play list out of its screen work with. All of it outlives them. */
struct PlayListFilesParts
{
    Services services;
    PlayListStore &lists;
    DisplayedSet &displayed;
    /** The folder chosen last in a folder dialog. */
    QString &LastMusicFolder;
    /** The folder that the save dialog starts in, for this run. */
    QString &LastPlayListFolder;
    /** The text and the data of cmbHeader; an empty name without a chosen list. */
    std::function<PlayListName()> chosenList;
    /** Rows of lbDetail, the blank one included. */
    std::function<int()> ListCount;
    /** Closes the screen, since the main screen shows the list's songs. */
    std::function<void()> unload;
    /** Files are copied: the user can use nothing of the screen until they are. */
    std::function<void(bool)> setScreenEnabled;
};

/** The entries of the File menu that write the chosen play list, copy its files or display its songs. */
class PlayListFiles final
{
public:
    explicit PlayListFiles(PlayListFilesParts parts);

    void mnuFileMakePlayListFile_Click();
    void mnuFileCopyMusic_Click();
    void mnuFileDisplayOnly_Click();

private:
    /** What came of copying. */
    struct Copied
    {
        int count = 0;
        /** Sentences. */
        QStringList failures{};
        /** By the user. */
        bool wasGivenUp = false;
        bool isOver = false;
    };

    void makePlayListFile();
    [[nodiscard]] bool mayReplace(const QString &path);
    void writePlayListFile(const QString &path, const QStringList &files, const QString &answer);
    void copyMusic();
    [[nodiscard]] QString startFolder(const QString &lastFolder) const;
    [[nodiscard]] QStringList fileNames(const QString &sql) const;
    /** False when the user was told that the copies do not fit. */
    [[nodiscard]] bool fits(const QStringList &files, const QString &folder);
    [[nodiscard]] Copied copyFiles(const QStringList &files, const QString &folder);
    void copyOne(const QString &source, const QString &target, const WorkingWindow &working, Copied &copied);
    void tellCopied(const Copied &copied, const QString &folder);

    PlayListFilesParts m_parts;
};

} // namespace quaverly
