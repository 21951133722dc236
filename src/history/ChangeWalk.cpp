// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeWalk.h"

#include "history/ChangeTexts.h"
#include "platform/shell/FileMove.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto SongTable = u"tblContacts"_s;
const auto TrackTable = u"tblPlayListDetail"_s;

} // namespace

QStringList ChangeWalk::go(const dao::Change &change, WalkDirection direction, Conflicts conflicts)
{
    m_change = change;
    m_direction = direction;
    m_conflicts = conflicts;
    m_steps = fileSteps(m_history.fileMoves(change), direction);
    LeftOut left;
    if (conflicts == Conflicts::LeaveOut) {
        left = findLeftOut();
    } else if (QStringList found = inTheWay(); !found.isEmpty()) {
        return found;
    }
    TagWalk tags(m_catalogue, change, direction);
    if (QStringList found = tags.obstacles(); !found.isEmpty())
        return found;
    const std::set<std::size_t> gone = checkSteps(m_steps, left.steps).gone;
    std::vector<FileStep> toGo;
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        if (!left.steps.contains(i) && !gone.contains(i))
            toGo.push_back(m_steps[i]);
    }
    m_steps = std::move(toGo);
    tags.go();
    try {
        moveAll();
    } catch (const dao::DaoError &) {
        tags.giveUp();
        throw;
    }
    try {
        const auto [done, refused] = writeRows(left);
        if (!done) {
            moveBack(m_steps);
            tags.giveUp();
        }
        return left.told + refused;
    } catch (const dao::DaoError &) {
        moveBack(m_steps);
        tags.giveUp();
        throw;
    }
}

// Files are only touched when nothing is left to refuse the rows.
QStringList ChangeWalk::inTheWay()
{
    QStringList found;
    for (const auto &[place, obstacle] : checkSteps(m_steps, {}).obstacles)
        found += obstacle;
    return found.isEmpty() && !m_steps.empty() ? names(tryOut({})) : found;
}

// What one song leaves behind may stand in the way of another one.
ChangeWalk::LeftOut ChangeWalk::findLeftOut()
{
    LeftOut left;
    for (bool more = !m_steps.empty(); more;) {
        more = false;
        for (const auto &[place, obstacle] : checkSteps(m_steps, left.steps).obstacles) {
            left.told += obstacle;
            more = leaveOut(place, left) || more;
        }
        left.rows = rowsOf(left);
        for (const dao::ChangedRow &row : tryOut(left.rows)) {
            for (std::size_t i = 0; i < m_steps.size(); ++i) {
                if (row.table != SongTable || m_steps[i].song != row.key || !leaveOut(i, left))
                    continue;
                left.told += names({row});
                more = true;
            }
        }
        left.rows = rowsOf(left);
    }
    return left;
}

/** A song's other files and pictures stay with it. False when it stayed already. */
bool ChangeWalk::leaveOut(std::size_t step, LeftOut &left)
{
    if (!left.steps.insert(step).second)
        return false;
    for (std::size_t i = 0; m_steps[step].song != 0 && i < m_steps.size(); ++i) {
        if (m_steps[i].song == m_steps[step].song)
            left.steps.insert(i);
    }
    return true;
}

std::vector<dao::ChangedRow> ChangeWalk::rowsOf(const LeftOut &left) const
{
    std::vector<dao::ChangedRow> rows;
    QSet<QString> paths;
    for (const std::size_t place : left.steps) {
        const FileStep &step = m_steps[place];
        if (step.song != 0)
            rows.push_back({SongTable, step.song});
        if (!step.isPicture)
            paths.insert(step.from.path());
    }
    if (!paths.isEmpty())
        std::ranges::copy(m_history.rowsWith(m_change, TrackTable, u"FileName"_s, paths),
                          std::back_inserter(rows));
    return rows;
}

ChangeWalk::Written ChangeWalk::writeRows(const LeftOut &left)
{
    dao::Transaction transaction(m_catalogue.CatalogueDb->workspace());
    QStringList refused = names(replay(left.rows));
    if (!refused.isEmpty() && m_conflicts == Conflicts::Stop)
        return {false, refused};
    for (const FileStep &step : m_steps) {
        if (!step.isPicture)
            m_notes.drop(step.song);
        for (const dao::MovedFile &move : step.moves)
            m_history.fileIsNow(move, dao::markOf(step.to.path()).value_or(step.mark));
    }
    transaction.commit();
    return {true, refused};
}

std::vector<dao::ChangedRow> ChangeWalk::replay(const std::vector<dao::ChangedRow> &leftAlone)
{
    return m_direction == WalkDirection::Back ? m_history.takeBack(m_change, m_conflicts, leftAlone)
                                              : m_history.makeAgain(m_change, m_conflicts, leftAlone);
}

std::vector<dao::ChangedRow> ChangeWalk::tryOut(const std::vector<dao::ChangedRow> &leftAlone)
{
    const dao::Transaction triedOut(m_catalogue.CatalogueDb->workspace());
    return replay(leftAlone);
}

void ChangeWalk::moveAll()
{
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        const FileStep &step = m_steps[i];
        if (!step.isPicture)
            m_notes.keep(step.song, step.from, step.to);
        try {
            shell::moveFile(step.from.path(), step.to.path());
        } catch (const dao::DaoError &) {
            if (!step.isPicture)
                m_notes.drop(step.song);
            moveBack(std::span(m_steps).first(i));
            throw;
        }
    }
}

// A song that can't go back keeps its note, and is settled at the next start.
void ChangeWalk::moveBack(std::span<const FileStep> steps)
{
    for (std::size_t i = steps.size(); i > 0; --i) {
        const FileStep &step = steps[i - 1];
        if (!step.isPicture) {
            static_cast<void>(m_notes.giveUp(step.song));
            continue;
        }
        try {
            shell::moveFile(step.to.path(), step.from.path());
        } catch (const dao::DaoError &) { // NOLINT(bugprone-empty-catch)
            // It lies where the next walk finds it.
        }
    }
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
