// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FileFacts.h"

#include <QByteArrayView>
#include <QString>
#include <QVariant>

#include <utility>
#include <vector>

namespace quaverly {

/** The first @p count characters; a character of two code units is kept whole or left out. */
[[nodiscard]] QString keepCharacters(const QString &text, qsizetype count);

/** Text of a tag's bytes in the system's code page; half a character at their end makes them no UTF-8. */
[[nodiscard]] QString textOfBytes(QByteArrayView bytes);

/** The number that a numeric text stands for. @throws dao::DaoError 6 when it is none or too large. */
[[nodiscard]] double numberOf(const QString &text);

/** The fields of a song that is about to be added, in the order of their first writing. */
class NewSong final
{
public:
    using Value = std::pair<QString, QVariant>;

    void clear() { m_values.clear(); }
    /** An empty text is a value, no Null. */
    void write(const QString &field, const QString &text);
    void write(const QString &field, const QVariant &value);

    /** A field not written reads as Null. */
    [[nodiscard]] QVariant value(const QString &field) const;
    /** A Null reads as empty. */
    [[nodiscard]] QString text(const QString &field) const;

    /** "Unknown" for an artist that shows nothing. */
    void completeArtist();
    /** The file's name for a title that shows nothing. */
    void completeSongName();

    [[nodiscard]] auto begin() const { return m_values.begin(); }
    [[nodiscard]] auto end() const { return m_values.end(); }

private:
    std::vector<Value> m_values;
};

/** What its file held. */
[[nodiscard]] TagsRead tagsOf(const NewSong &song);

} // namespace quaverly
