// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace quaverly {

/** What stands between a song's name and its artist in a row. */
inline constexpr char16_t ArtistMark[] = u" <> ";

/** A song as the player's list shows it: its name, and behind the mark its artist unless that is empty. */
[[nodiscard]] QString songRow(const QString &songName, const QString &artist);

struct SongNames
{
    QString SongName;
    QString Artist;
};

/** A row's two parts; a song whose own name holds the mark is cut there too. */
[[nodiscard]] SongNames namesOfRow(const QString &row);

/** Paths and rows are the same whatever their case. */
[[nodiscard]] bool isSameText(const QString &left, const QString &right);

/**
 * The songs that the player goes through, as two parallel lists: what is shown of each, and its full path.
 * ListIndex is the selected row, -1 without one.
 */
class SongQueue final
{
public:
    void add(const QString &row, const QString &url);
    /** The lists' memory for that many songs more. */
    void reserve(qsizetype songs);
    void clear();
    /** The selected song stays selected. @p to: the song's row when it has moved. */
    void insert(int row, const QString &song, const QString &url);
    void remove(int row);
    void move(int from, int to);

    [[nodiscard]] int count() const { return static_cast<int>(m_songs.size()); }
    [[nodiscard]] bool isEmpty() const { return m_songs.isEmpty(); }
    /** The empty text for a row that isn't there. */
    [[nodiscard]] QString song(int row) const { return m_songs.value(row); }
    [[nodiscard]] QString url(int row) const { return m_urls.value(row); }
    [[nodiscard]] const QStringList &urls() const { return m_urls; }
    /** First row with that path, -1 without one. */
    [[nodiscard]] int rowOf(const QString &url) const;
    /** What the row of that path says, the selected one first; nothing where it only shows the path. */
    [[nodiscard]] SongNames namesOf(const QString &url) const;

    [[nodiscard]] int ListIndex() const { return m_listIndex; }
    /** Takes any row that is there, or -1. */
    void setListIndex(int row);
    [[nodiscard]] bool hasSelection() const { return m_listIndex >= 0; }
    [[nodiscard]] bool isLastSelected() const { return m_listIndex == count() - 1; }

private:
    QStringList m_songs;
    QStringList m_urls;
    int m_listIndex = -1;
};

} // namespace quaverly
