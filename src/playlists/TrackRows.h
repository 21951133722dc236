// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <algorithm>
#include <optional>

namespace quaverly {

struct ShownTrack;

/** The most rows that are read into lbDetail. */
inline constexpr qint64 MostRows = 32001;

/** A row of lbDetail. */
struct TrackRow
{
    QString text;
    /** The track's key in the store. */
    qint64 key = 0;

    bool operator==(const TrackRow &) const = default;
};

/**
 * The rows of lbDetail: a list's tracks and one blank row behind them, the place to drop a song that is to be
 * the last one. No rows at all while no list is loaded.
 */
class TrackRows final
{
public:
    void load(const QList<ShownTrack> &tracks);
    void clear() { m_rows.clear(); }

    /** The blank row included. */
    [[nodiscard]] int ListCount() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] int songs() const { return std::max(ListCount() - 1, 0); }
    [[nodiscard]] bool isSong(int row) const { return row >= 0 && row < songs(); }
    /** Also of a track without a title or an artist. */
    [[nodiscard]] bool isFirstEmpty() const { return text(0).isEmpty(); }
    /** The empty text for a row that isn't there. */
    [[nodiscard]] QString text(int row) const { return m_rows.value(row).text; }
    [[nodiscard]] qint64 key(int row) const { return m_rows.value(row).key; }
    /** Of all songs, from the top. */
    [[nodiscard]] QList<qint64> keys() const;

    void setText(int row, const QString &text) { m_rows[row].text = text; }

    /**
     * Where the song of row @p selected comes to stand when it is dropped on row @p target: above what stands
     * there. Nothing when it can't be moved.
     */
    [[nodiscard]] std::optional<int> placeAfterMove(int selected, int target) const;
    void MoveListBoxItem(int selected, int target);

private:
    QList<TrackRow> m_rows;
};

} // namespace quaverly
