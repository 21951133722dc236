// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace quaverly {

class OptionsStore;

namespace keys {
/** Root of the web search that look-ups go to; empty for the program's own choice. */
inline constexpr char16_t SearchSite[] = u"Search Site";
} // namespace keys

/** Trimmed, and each blank a "+". */
[[nodiscard]] QString searchWords(const QString &text);

/**
 * The address of a search. @p query is its keys up to "q=", @p words the joined search words, in which "&" is
 * escaped.
 */
[[nodiscard]] QUrl searchAddress(const OptionsStore &store, const QString &query, QString words);

/** Search words for the lyrics of a song, given its row in the player's list. */
[[nodiscard]] QString lyricsWords(const QString &row);
[[nodiscard]] QUrl lyricsAddress(const OptionsStore &store, const QString &row);

} // namespace quaverly
