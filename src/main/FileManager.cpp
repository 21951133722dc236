// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/FileManager.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"

#include <QDBusConnection>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** A file manager that has to be started takes a while; longer than that, the window would seem dead. */
constexpr int Patience = 3000;

bool askFileManager(const QString &path)
{
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    call << QStringList{QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded())} << QString();
    return bus.call(call, QDBus::Block, Patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace

bool showInFileManager(Desktop &desktop, const QString &path)
{
    if (FileExists(path) && askFileManager(path))
        return true;
    const QString folder = folderOf(path);
    return FolderExists(folder) && desktop.OpenUrl(QUrl::fromLocalFile(folder));
}

} // namespace quaverly
