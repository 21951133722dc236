// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SongOfFile.h"
#include "platform/store/History.h"

#include <QString>

#include <map>
#include <set>
#include <vector>

namespace quaverly {

enum class WalkDirection { Back, Again };

/** The way of one file: all of a change's moves of it in one go. */
struct FileStep
{
    /** 0 for a picture of no song. */
    qint64 song = 0;
    bool isPicture = false;
    SongFile from;
    SongFile to;
    /** As it was left where it comes from. */
    dao::FileMark mark;
    std::vector<dao::MovedFile> moves;
};

/** The steps of a change's files in the order in which they are to be gone. */
[[nodiscard]] std::vector<FileStep> fileSteps(const std::vector<dao::MovedFile> &moves,
                                              WalkDirection direction);

/** Which of the steps can be gone, looked at on the disk without touching it. */
struct StepCheck
{
    /** What stands in the way of a step, by its place. */
    std::map<std::size_t, QString> obstacles;
    /** Steps whose file is where it is to go already. */
    std::set<std::size_t> gone;
};

/** One after the other, without those @p leftOut. */
[[nodiscard]] StepCheck checkSteps(const std::vector<FileStep> &steps, const std::set<std::size_t> &leftOut);

} // namespace quaverly
