// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QDateTime>

#include <vector>

namespace quaverly {

class Desktop;

/** A dated copy of the catalogue. */
struct Backup
{
    QString path;
    /** Local time, to the second. */
    QDateTime made;
    /** Tells copies of one second apart, from 1 on. */
    int number = 1;
    /** Songs in it; -1 when it can't be read. */
    qint64 songs = -1;
    qint64 bytes = 0;
};

/**
 * Dated copies of the open catalogue, in a folder "Backups" beside it. The ten newest are kept; of the older
 * ones the first of each day, which is what that day's changes began with.
 */
class Backups final
{
public:
    /** All references outlive this object. */
    Backups(Desktop &desktop, Catalogue &catalogue, dao::DBEngine &engine);

    /**
     * Call it when the user has confirmed a command that changes many rows, before anything is changed
     * and outside any transaction. Copies the catalogue, with a wait window. When no copy can be made, or the
     * user closes that window, it asks whether to go on without one. A catalogue that can't be written to is
     * not copied, since nothing will change in it. @p spared is a copy that stays however old it is.
     * @returns false when the command must stop, without a word more
     */
    [[nodiscard]] bool beforeBulkCommand(const QString &spared = {});

    /** The newest first. Counting the songs takes a moment with large catalogues. */
    [[nodiscard]] std::vector<Backup> list() const;

    /**
     * Reads a copy through, with a wait window. False when the user closed that.
     * @throws dao::DaoError 3049 when it is damaged, and as opening it does
     */
    [[nodiscard]] bool check(const Backup &backup) const;

private:
    /** False when the user gave it up. @throws dao::DaoError, with nothing left of the copy */
    [[nodiscard]] bool makeCopy();
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QString freePath() const;
    [[nodiscard]] std::vector<Backup> copies() const;
    void makeRoom() const;
    void thin(const QString &spared) const;

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    dao::DBEngine &m_engine;
};

} // namespace quaverly
