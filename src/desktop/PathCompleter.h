// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCompleter>

class QFileSystemModel;

namespace quaverly {

/**
 * Offers whole paths for what is typed, absolute or from the folder on show. The file dialog's own one
 * cuts the folder on show off every path that begins with the same letters, so that "/a/music2" becomes
 * the empty text beside "/a/music".
 */
class PathCompleter final : public QCompleter
{
public:
    PathCompleter(QFileSystemModel &files, QObject *parent);

    [[nodiscard]] QString pathFromIndex(const QModelIndex &index) const override;
    [[nodiscard]] QStringList splitPath(const QString &typed) const override;

private:
    QFileSystemModel &m_files;
};

} // namespace quaverly
