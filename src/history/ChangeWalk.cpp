// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeWalk.h"

#include "desktop/FileHelpers.h"
#include "history/ChangeTexts.h"
#include "platform/shell/FileMove.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

using Conflicts = dao::History::Conflicts;

SongFile fileOf(const QString &path)
{
    const qsizetype end = path.lastIndexOf(u'/') + 1;
    return {path.left(end), path.mid(end)};
}

} // namespace

QStringList ChangeWalk::go(const dao::Change &change, WalkDirection direction, Conflicts conflicts)
{
    const std::vector<Move> moves = movesOf(change, direction);
    if (QStringList inTheWay = obstacles(moves); !inTheWay.isEmpty())
        return inTheWay;
    // Files are only touched when nothing is left to refuse the rows.
    if (!moves.empty() && conflicts == Conflicts::Stop) {
        if (QStringList inTheWay = names(rowsInTheWay(change, direction)); !inTheWay.isEmpty())
            return inTheWay;
    }
    moveAll(moves);
    try {
        const auto [done, left] = writeRows(change, direction, conflicts, moves);
        if (!done)
            moveBack(moves);
        return left;
    } catch (const dao::DaoError &) {
        moveBack(moves);
        throw;
    }
}

ChangeWalk::Written ChangeWalk::writeRows(const dao::Change &change, WalkDirection direction,
                                          Conflicts conflicts, const std::vector<Move> &moves)
{
    dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
    QStringList left = names(replay(change, direction, conflicts));
    if (!left.isEmpty() && conflicts == Conflicts::Stop)
        return {false, left};
    for (const Move &move : moves)
        m_notes.drop(move.song);
    transaction.commit();
    return {true, left};
}

std::vector<ChangeWalk::Move> ChangeWalk::movesOf(const dao::Change &change, WalkDirection direction) const
{
    std::vector<Move> moves;
    for (const dao::ChangedValue &made : dao::History(*m_catalogue.CatalogueDb).fileMoves(change))
        moves.push_back({made.key, fileOf(made.before.toString()), fileOf(made.after.toString())});
    if (direction == WalkDirection::Back) {
        std::ranges::reverse(moves);
        for (Move &move : moves)
            std::swap(move.from, move.to);
    }
    return moves;
}

QStringList ChangeWalk::obstacles(const std::vector<Move> &moves)
{
    QStringList all;
    for (const Move &move : moves) {
        if (!FileExists(move.from.path()))
            all += u"The file \"%1\" is no longer there."_s.arg(move.from.path());
        else if (!FolderExists(move.to.PathName))
            all += u"The folder \"%1\" is not there."_s.arg(move.to.PathName);
        else if (FileExists(move.to.path()) &&
                 !shell::isOwnNameInOtherCapitals(move.from.path(), move.to.path()))
            all += u"There is another file now: \"%1\"."_s.arg(move.to.path());
    }
    return all;
}

std::vector<dao::ChangedRow> ChangeWalk::replay(const dao::Change &change, WalkDirection direction,
                                                Conflicts conflicts)
{
    dao::History history(*m_catalogue.CatalogueDb);
    return direction == WalkDirection::Back ? history.takeBack(change, conflicts)
                                            : history.makeAgain(change, conflicts);
}

std::vector<dao::ChangedRow> ChangeWalk::rowsInTheWay(const dao::Change &change, WalkDirection direction)
{
    const dao::Transaction triedOut(m_catalogue.CatalogueDb->workspace());
    return replay(change, direction, Conflicts::Stop);
}

void ChangeWalk::moveAll(const std::vector<Move> &moves)
{
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Move &move = moves[i];
        m_notes.keep(move.song, move.from, move.to);
        try {
            shell::moveFile(move.from.path(), move.to.path());
        } catch (const dao::DaoError &) {
            m_notes.drop(move.song);
            moveBack(std::span(moves).first(i));
            throw;
        }
    }
}

// What can't go back keeps its note, and is settled at the next start.
void ChangeWalk::moveBack(std::span<const Move> moves)
{
    for (std::size_t i = moves.size(); i > 0; --i)
        static_cast<void>(m_notes.giveUp(moves[i - 1].song));
}

QStringList ChangeWalk::names(const std::vector<dao::ChangedRow> &rows) const
{
    const ChangeTexts texts(*m_catalogue.CatalogueDb);
    QStringList all;
    for (const dao::ChangedRow &row : rows)
        all += texts.record(row.table, row.key);
    return all;
}

} // namespace quaverly
