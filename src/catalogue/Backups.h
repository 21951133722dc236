// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QDateTime>

#include <vector>

namespace quaverly {

class Desktop;
class OptionsStore;

/** A dated copy of the catalogue. */
struct Backup
{
    QString path;
    /** Local time, to the second. */
    QDateTime made;
    /** Tells copies of one second apart, from 1 on. */
    int number = 1;
    /** The command that it was made before; empty when the file's name doesn't say. */
    QString command;
    /** Songs in it; -1 when it can't be read. */
    qint64 songs = -1;
    qint64 bytes = 0;
};

/**
 * Dated copies of the open catalogue, in a folder "Backups" beside it. The ten newest are kept; of the older
 * ones the first of each day, which is what that day's changes began with. When they take more room than they
 * may, the oldest go, but never the last one.
 */
class Backups final
{
public:
    /** All references outlive this object. */
    Backups(Desktop &desktop, Catalogue &catalogue, dao::DBEngine &engine, const OptionsStore &options);

    /**
     * Call it when the user has confirmed a command that changes many rows, before anything is changed
     * and outside any transaction. Copies the catalogue, with a wait window. When no copy can be made, or the
     * user closes that window, it asks whether to go on without one. A catalogue that can't be written to is
     * not copied, since nothing will change in it. @p command names it in the list of copies, and in the
     * file's name. @p spared is a copy that stays however old it is.
     * @returns false when the command must stop, without a word more
     */
    [[nodiscard]] bool beforeBulkCommand(const QString &command, const QString &spared = {});

    struct Room
    {
        qsizetype copies = 0;
        qint64 bytesTaken = 0;
        /** What they may take together, in bytes. */
        qint64 limit = 0;
    };
    [[nodiscard]] Room room() const;

    /** The newest first. Counting the songs takes a moment with large catalogues. */
    [[nodiscard]] std::vector<Backup> list() const;

    /**
     * Reads a copy through, with a wait window. False when the user closed that.
     * @throws dao::DaoError 3049 when it is damaged, and as opening it does
     */
    [[nodiscard]] bool check(const Backup &backup) const;

private:
    /** False when the user gave it up. @throws dao::DaoError, with nothing left of the copy */
    [[nodiscard]] bool makeCopy(const QString &command, const QString &spared);
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QString freePath(const QString &command) const;
    [[nodiscard]] std::vector<Backup> copies() const;
    void makeFolder() const;
    void makeRoom(const QString &spared) const;
    void thin(const QString &spared) const;
    void thinByDay(const QString &spared) const;

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    dao::DBEngine &m_engine;
    const OptionsStore &m_options;
};

} // namespace quaverly
