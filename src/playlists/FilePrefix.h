// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

/** What the lines of a play list file begin with, as the user answered: a folder of another machine, or one
 * of two words. */
class FilePrefix final
{
public:
    /** The answer that leaves the paths as they are on this machine. */
    [[nodiscard]] static QString thisMachine();

    /** A separator that is missing is added in the answer's own style. */
    explicit FilePrefix(const QString &answer);

    /** The line for a music file. */
    [[nodiscard]] QString line(const QString &FileName) const;

private:
    QString m_prefix;
    bool m_keepsPaths = false;
};

} // namespace quaverly
