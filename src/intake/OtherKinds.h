// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

namespace quaverly {

/** Counts files that a scan passes by as they are no music that it takes, by their endings. */
class OtherKinds final
{
public:
    /** Pictures, texts, lists and the like, which lie beside music everywhere, don't count. */
    void count(const QString &fileName);
    /** "37 files of other kinds: 30 .wmv, 7 .mid.", the most frequent first; empty for none. */
    [[nodiscard]] QString sentence() const;

private:
    QHash<QString, int> m_counts;
};

} // namespace quaverly
