// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/HistoryCommands.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "history/ChangeTexts.h"
#include "songlist/DisplayedSet.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** More of what stands in the way is only counted. */
constexpr qsizetype MostNamed = 15;
/** Characters of a sentence in a menu. */
constexpr qsizetype LongestCaption = 60;

using Conflicts = ChangeWalk::Conflicts;

QString wordFor(WalkDirection direction)
{
    return direction == WalkDirection::Back ? u"Undo"_s : u"Redo"_s;
}

QString listed(const QStringList &lines)
{
    QString all = lines.mid(0, MostNamed).join(u'\n');
    if (lines.size() > MostNamed)
        all += u"\n... and %1 more"_s.arg(lines.size() - MostNamed);
    return all;
}

} // namespace

void HistoryCommands::mnuUndo_Click()
{
    step(WalkDirection::Back);
}

void HistoryCommands::mnuRedo_Click()
{
    step(WalkDirection::Again);
}

void HistoryCommands::mnuHistory_Click()
{
    guarded(m_parts.services.desktop, u"History"_s, m_parts.showHistory);
}

std::optional<dao::Change> HistoryCommands::next(WalkDirection direction) const
{
    const dao::History history(*m_parts.services.catalogue.CatalogueDb);
    return direction == WalkDirection::Back ? history.undoable() : history.redoable();
}

void HistoryCommands::step(WalkDirection direction)
{
    guarded(m_parts.services.desktop, wordFor(direction), [&] {
        m_parts.services.catalogue.CatalogueDb->endChange();
        if (const auto change = next(direction))
            walk(*change, direction, Obstacles::Tell);
    });
}

int HistoryCommands::walk(const dao::Change &last, WalkDirection direction)
{
    return walk(last, direction, Obstacles::OfferToLeaveOut);
}

bool HistoryCommands::restoreCopyFor(const dao::Change &change)
{
    return m_parts.restoreBefore(change.made);
}

int HistoryCommands::walk(const dao::Change &last, WalkDirection direction, Obstacles obstacles)
{
    const ChangeTexts texts(*m_parts.services.catalogue.CatalogueDb);
    const bool back = direction == WalkDirection::Back;
    int gone = 0;
    for (auto change = next(direction); change && (back ? change->id >= last.id : change->id <= last.id);
         change = next(direction)) {
        const QString sentence = texts.sentence(*change);
        qint64 song = texts.song(*change);
        if (!go(*change, direction, obstacles))
            break;
        ++gone;
        showAnew(song);
        m_parts.tell((back ? u"Taken back: "_s : u"Done again: "_s) + sentence);
    }
    return gone;
}

QStringList HistoryCommands::goWith(const dao::Change &change, WalkDirection direction, Conflicts conflicts)
{
    const Hourglass hourglass(m_parts.services.desktop);
    return ChangeWalk(m_parts.services.catalogue).go(change, direction, conflicts);
}

bool HistoryCommands::go(const dao::Change &change, WalkDirection direction, Obstacles obstacles)
{
    const QStringList inTheWay = goWith(change, direction, Conflicts::Stop);
    if (inTheWay.isEmpty())
        return true;
    const bool back = direction == WalkDirection::Back;
    const QString told = u"\"%1\" can't be %2, since something stands in the way:\n\n%3\n\n"_s.arg(
        ChangeTexts(*m_parts.services.catalogue.CatalogueDb).sentence(change),
        back ? u"taken back"_s : u"done again"_s, listed(inTheWay));
    if (obstacles == Obstacles::Tell) {
        m_parts.services.desktop.MessageBox(
            told + u"Nothing was changed.  In the History of the Edit menu, the rest "
                   "can be %1 without these."_s.arg(back ? u"taken back"_s : u"done again"_s),
            wordFor(direction), Icon::Exclamation);
        return false;
    }
    if (m_parts.services.desktop.MessageBox(
            told + u"Leave these as they are, and %1 the rest?"_s.arg(back ? u"take back"_s : u"do again"_s),
            wordFor(direction), Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    static_cast<void>(goWith(change, direction, Conflicts::LeaveOut));
    return true;
}

void HistoryCommands::showAnew(qint64 song)
{
    DataControl &data = m_parts.set.Data1();
    {
        const KeepRow keep(data);
        data.Refresh();
    }
    if (song != 0)
        static_cast<void>(data.findRecord(song));
}

std::optional<QString> HistoryCommands::undoCaption() const
{
    return caption(WalkDirection::Back);
}

std::optional<QString> HistoryCommands::redoCaption() const
{
    return caption(WalkDirection::Again);
}

std::optional<QString> HistoryCommands::caption(WalkDirection direction) const
{
    try {
        const auto change = next(direction);
        if (!change)
            return std::nullopt;
        QString sentence = ChangeTexts(*m_parts.services.catalogue.CatalogueDb).sentence(*change);
        if (sentence.size() > LongestCaption)
            sentence = sentence.left(LongestCaption - 1) + u'\u2026';
        return wordFor(direction) + u' ' + sentence.replace(u'&', u"&&"_s).replace(u'\n', u' ');
    } catch (const dao::DaoError &) {
        // A journal that can't be read is told of by the history itself.
        return std::nullopt;
    }
}

} // namespace quaverly
