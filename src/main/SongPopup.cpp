// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/SongPopup.h"

using namespace Qt::StringLiterals;

namespace quaverly {

SongPopup::SongPopup(const QList<QAction *> &entries, QAction *addToPlayList, QWidget *parent)
    : QMenu(parent), m_addToPlayList(addToPlayList)
{
    setObjectName(u"mnuPopup"_s);
    addActions(entries);
}

void SongPopup::show(QPoint place, const QString &currentList)
{
    const QString caption = u"Add song to play list"_s;
    m_addToPlayList->setText(currentList.isEmpty()
                                 ? caption
                                 : caption + u" \""_s + QString(currentList).replace(u'&', u"&&"_s) + u'"');
    popup(place);
}

} // namespace quaverly
