// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** How the filter screen puts a criteria text together. */
namespace quaverly {

/** The fields to choose from, out of those displayed: without pictures, descriptions and inner ones. */
[[nodiscard]] QStringList criteriaFields(const QStringList &displayed);

/** The text with a field's name and a blank behind it. */
[[nodiscard]] QString withField(const QString &criteria, const QString &field);

/** The text with conditions on genre and rating joined to it; a blank one adds nothing. */
[[nodiscard]] QString withGenreAndRating(const QString &criteria, const QString &genre,
                                         const QString &rating);

/** The text with the songs of an album joined to it, in the order of their tracks if it has an artist. */
[[nodiscard]] QString withAlbum(const QString &criteria, const QString &album, const QString &artist);

/** True when there is more than blanks. */
[[nodiscard]] bool hasCriteria(const QString &criteria);

/** How many songs the criteria would show, as the screen says it. */
[[nodiscard]] QString songsText(qint64 songs);

} // namespace quaverly
