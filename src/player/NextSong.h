// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace quaverly {

/** A song of the displayed set as the player goes on with it. */
struct NextSongFile
{
    QString PathName;
    QString FileName;
    QString SongName;
    QString Artist;
};

enum class NextMode { Random, Next };

/** A row of @p rows for @p random in [0, 1): the first and the last are hit half as often as the others. */
[[nodiscard]] qint64 randomRow(double random, qint64 rows);

/**
 * Finds the song to play after another one, in the displayed set as it was when the player opened: what the
 * main screen shows later does not matter. Its rows are read at the first question and kept.
 */
class NextSong final
{
public:
    /** @p random gives numbers in [0, 1). */
    NextSong(Catalogue &catalogue, QString displayedSetSql, std::function<double()> random);

    /** Nothing when the set is empty, @p currentUrl is not in it, or is its last song. @throws dao::DaoError.
     */
    [[nodiscard]] std::optional<NextSongFile> find(NextMode mode, const QString &currentUrl);

private:
    void open();
    /** To the row behind that file's; false without one. */
    [[nodiscard]] bool moveBehind(const QString &url);

    Catalogue &m_catalogue;
    QString m_displayedSetSql;
    std::function<double()> m_random;
    std::unique_ptr<dao::Recordset> m_nextSongRecordset;
};

} // namespace quaverly
