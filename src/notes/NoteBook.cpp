// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteBook.h"

#include "catalogue/Catalogue.h"
#include "catalogue/SettingsRows.h"
#include "platform/store/History.h"
#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype LongestTitle = 50;

QString kind(const char16_t *type)
{
    return QString::fromUtf16(type);
}

} // namespace

QString noteTitle(const QString &typed)
{
    QString title = typed.left(LongestTitle);
    while (title.endsWith(u' '))
        title.chop(1);
    return title;
}

QStringList NoteBook::titles() const
{
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(
        u"Select Name from tblSettings Where Type='NOTE' Order by Name"_s, dao::RecordsetType::Snapshot);
    QStringList titles;
    for (qint64 row = 0; row < rows->RecordCount(); ++row)
        titles.append(NullToEmpty(rows->valueAt(row, 0)));
    return titles;
}

int NoteBook::placeOf(const QString &title) const
{
    const QStringList all = titles();
    const auto isThat = [&](const QString &each) { return each.compare(title, Qt::CaseInsensitive) == 0; };
    const auto found = std::ranges::find_if(all, isThat);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

void NoteBook::repairTitles()
{
    for (const QString &title : titles()) {
        if (title.contains(u'\''))
            m_settings.rename(kind(settings::Note), title, QString(title).replace(u'\'', u'`'));
    }
}

TitleFault NoteBook::check(const QString &typed, const QString &current) const
{
    const QString title = noteTitle(typed);
    if (!isGreaterThanBlank(title))
        return TitleFault::Blank;
    if (typed.contains(u'\'') || typed.contains(u'"'))
        return TitleFault::Quotes;
    const bool isOwn = title.compare(current, Qt::CaseInsensitive) == 0;
    return !isOwn && m_settings.find(kind(settings::Note), title) ? TitleFault::Taken : TitleFault::None;
}

QString NoteBook::text(const QString &title) const
{
    const auto row = m_settings.find(kind(settings::Note), title);
    return row ? row->Setting8 : QString();
}

void NoteBook::save(const QString &title, const QString &rtf)
{
    m_settings.storeNamed(kind(settings::Note), title, rtf);
}

void NoteBook::rename(const QString &title, const QString &newTitle)
{
    m_settings.rename(kind(settings::Note), title, newTitle);
}

void NoteBook::remove(const QString &title)
{
    m_settings.remove(kind(settings::Note), title);
}

void NoteBook::ofSitting(const QString &sitting)
{
    dao::History(*m_catalogue.CatalogueDb).ofSitting(sitting);
}

int NoteBook::lastIndex() const
{
    const auto row = m_settings.find(kind(settings::LastNote));
    bool isNumber = false;
    const int index = row ? row->Name.toInt(&isNumber) : -1;
    return isNumber ? index : -1;
}

void NoteBook::storeLastIndex(int index)
{
    // Looking at the notes alone writes nothing.
    if (index != lastIndex())
        m_settings.store(kind(settings::LastNote), QString::number(index));
}

} // namespace quaverly
