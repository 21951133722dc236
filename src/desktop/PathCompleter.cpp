// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/PathCompleter.h"

#include <QDir>
#include <QFileSystemModel>

namespace quaverly {

PathCompleter::PathCompleter(QFileSystemModel &files, QObject *parent) : QCompleter(parent), m_files(files)
{
    setModel(&files);
}

QString PathCompleter::pathFromIndex(const QModelIndex &index) const
{
    return index.data(QFileSystemModel::FilePathRole).toString();
}

QStringList PathCompleter::splitPath(const QString &typed) const
{
    const bool atHome = typed == u'~' || typed.startsWith(QStringLiteral("~/"));
    const QString path = QDir(m_files.rootPath()).filePath(atHome ? QDir::homePath() + typed.mid(1) : typed);
    QStringList parts = QDir::cleanPath(path).split(u'/', Qt::SkipEmptyParts);
    parts.prepend(QStringLiteral("/"));
    // Behind a separator, everything in the folder is offered.
    if (typed.endsWith(u'/') && parts.size() > 1)
        parts.append(QString());
    return parts;
}

} // namespace quaverly
