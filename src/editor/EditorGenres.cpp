// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorGenres.h"

#include "catalogue/GenreTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Catalogues hold these with a blank behind them when they were picked here; that is meant to stay. */
constexpr QStringView WithBlank[] = {u"A Cappella", u"Acid Jazz"};

} // namespace

QStringList editorGenres()
{
    const GenreTable table = LoadGenreTable();
    QStringList genres;
    for (int key = 0; key < GenreCount; ++key) {
        const QString name = table.ReadProperty(QString::number(key));
        const bool blank = std::ranges::find(WithBlank, QStringView(name)) != std::end(WithBlank);
        genres.append(blank ? name + u' ' : name);
    }
    genres.sort(Qt::CaseInsensitive);
    return genres;
}

} // namespace quaverly
