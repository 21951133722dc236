// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

namespace quaverly {

/** Genres that tags may give by number. */
inline constexpr int GenreCount = 148;

/** The names of the numeric genres, under the decimal texts "0" to "147". */
class GenreTable final
{
public:
    /** The name, or the empty text for any other key. */
    [[nodiscard]] QString ReadProperty(const QString &key) const;

private:
    friend GenreTable LoadGenreTable();
    QHash<QString, QString> m_names;
};

[[nodiscard]] GenreTable LoadGenreTable();

} // namespace quaverly
