// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace quaverly {

/** A row of a table of changes. */
struct ChangedRowTexts
{
    /** The song, list, category, filter or note. */
    QString record;
    /** The grid's heading for a song's field; what happens to a whole row otherwise. */
    QString field;
    QString before;
    QString after;
};

/**
 * What a command would do, row by row, before it does it. The rows that can't be acted on come first and are
 * never ticked; of the others all are ticked until the user unticks some.
 */
class Preview
{
public:
    virtual ~Preview() = default;
    Preview(const Preview &) = delete;
    Preview &operator=(const Preview &) = delete;

    /** What the command would do, in a sentence. */
    [[nodiscard]] const QString &sentence() const { return m_sentence; }
    [[nodiscard]] int count() const { return static_cast<int>(m_ticked.size()); }
    /** How many rows at the top can't be acted on; their `after` says why. */
    [[nodiscard]] int obstructed() const { return m_obstructed; }
    [[nodiscard]] bool isTicked(int row) const { return m_ticked[static_cast<std::size_t>(row)]; }
    [[nodiscard]] int ticked() const { return m_tickedCount; }
    /** Leaves rows alone that can't be acted on. */
    void tick(int row, bool on);
    void tickAll(bool on);

    /** Read when it is looked at. @throws dao::DaoError */
    [[nodiscard]] virtual ChangedRowTexts row(int row) const = 0;
    /** Above the four texts of a row. */
    [[nodiscard]] virtual QStringList headings() const;
    /** Ways to choose which rows are ticked, the present one first; mostly there is only one and no list. */
    [[nodiscard]] virtual QStringList rules() const { return {}; }
    /** Ticks as that way has it. @throws dao::DaoError */
    virtual void follow(int /*rule*/) {}
    /** Why the command can't go on with these ticks; empty when it can. @throws dao::DaoError */
    [[nodiscard]] virtual QString objection() const { return {}; }
    /** Makes the row's song current in the grid; false when the grid doesn't show it. @throws dao::DaoError
     */
    virtual bool showSong(int /*row*/) { return false; }

protected:
    Preview() = default;
    /** Called once, by the constructor, and before any other. */
    void setRows(const QString &sentence, std::size_t count, std::size_t obstructed = 0);

private:
    QString m_sentence;
    std::vector<bool> m_ticked;
    int m_obstructed = 0;
    int m_tickedCount = 0;
};

} // namespace quaverly
