// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/FileSteps.h"

#include "desktop/FileHelpers.h"
#include "platform/shell/FileMove.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

SongFile fileOf(const QString &path)
{
    const qsizetype end = path.lastIndexOf(u'/') + 1;
    return {path.left(end), path.mid(end)};
}

FileStep stepOf(const dao::MovedFile &move, bool back)
{
    return {move.song, move.isPicture, fileOf(back ? move.to : move.from), fileOf(back ? move.from : move.to),
            move.mark, {move}};
}

/** The disk as it will be behind the steps that were looked at. */
class DiskToBe final
{
public:
    [[nodiscard]] bool hasFile(const QString &path) const
    {
        return m_come.contains(path) || (!m_gone.contains(path) && FileExists(path));
    }
    [[nodiscard]] bool isMoved(const QString &path) const { return m_come.contains(path); }
    void move(const QString &from, const QString &to)
    {
        m_come.remove(from);
        m_gone.insert(from);
        m_gone.remove(to);
        m_come.insert(to);
    }

private:
    QSet<QString> m_come;
    QSet<QString> m_gone;
};

bool isLeftAt(const QString &path, const FileStep &step)
{
    const auto mark = dao::markOf(path);
    return mark && mark->fits(step.mark);
}

QString obstacleOf(const FileStep &step, const DiskToBe &disk)
{
    const QString from = step.from.path();
    const QString to = step.to.path();
    if (!disk.hasFile(from))
        return u"The file \"%1\" is no longer there."_s.arg(from);
    if (!disk.isMoved(from) && !isLeftAt(from, step))
        return u"The file \"%1\" is another one, or was changed."_s.arg(from);
    if (!FolderExists(step.to.PathName))
        return u"The folder \"%1\" is not there."_s.arg(step.to.PathName);
    if (disk.hasFile(to) && !shell::isOwnNameInOtherCapitals(from, to))
        return u"There is another file now: \"%1\"."_s.arg(to);
    return {};
}

} // namespace

std::vector<FileStep> fileSteps(const std::vector<dao::MovedFile> &moves, WalkDirection direction)
{
    const bool back = direction == WalkDirection::Back;
    std::vector<FileStep> steps;
    const auto add = [&](const dao::MovedFile &move) {
        FileStep step = stepOf(move, back);
        const auto goesOn = std::ranges::find_if(steps, [&](const FileStep &earlier) {
            return earlier.song == step.song && earlier.isPicture == step.isPicture &&
                   earlier.to == step.from;
        });
        if (goesOn == steps.end())
            return steps.push_back(std::move(step));
        goesOn->to = step.to;
        goesOn->moves.push_back(move);
    };
    if (back)
        std::for_each(moves.rbegin(), moves.rend(), add);
    else
        std::for_each(moves.begin(), moves.end(), add);
    std::erase_if(steps, [](const FileStep &step) { return step.from == step.to; });
    return steps;
}

StepCheck checkSteps(const std::vector<FileStep> &steps, const std::set<std::size_t> &leftOut)
{
    StepCheck check;
    DiskToBe disk;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const FileStep &step = steps[i];
        if (leftOut.contains(i))
            continue;
        // A walk that died on the way may have brought it there.
        if (!disk.hasFile(step.from.path()) && disk.hasFile(step.to.path()) &&
            isLeftAt(step.to.path(), step)) {
            check.gone.insert(i);
            continue;
        }
        if (const QString obstacle = obstacleOf(step, disk); !obstacle.isEmpty())
            check.obstacles[i] = obstacle;
        else
            disk.move(step.from.path(), step.to.path());
    }
    return check;
}

} // namespace quaverly
