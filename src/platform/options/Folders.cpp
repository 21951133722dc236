// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/options/Folders.h"

#include "platform/text/Text.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly::folders {

namespace {

const auto ProgramFolder = u"Quaverly"_s;

/** A base folder named by the environment; a relative one is no valid answer and is passed over. */
QString fromEnvironment(const char *variable)
{
    const QString named = qEnvironmentVariable(variable);
    return named.startsWith(PathSeparator) ? QDir::cleanPath(named) : QString();
}

QString programFolder(const char *variable, const QString &underHome)
{
    const QString named = fromEnvironment(variable);
    const QString base = named.isEmpty() ? QDir::homePath() + PathSeparator + underHome : named;
    QString folder = base + PathSeparator + ProgramFolder + PathSeparator;
    QDir().mkpath(folder);
    return folder;
}

/** Makes the folder if need be; true when it is a real folder that only this user may enter. */
bool isPrivateFolder(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder);
    ::mkdir(name.constData(), S_IRWXU);
    struct stat found = {};
    if (::lstat(name.constData(), &found) != 0 || !S_ISDIR(found.st_mode) || found.st_uid != ::geteuid())
        return false;
    const bool closed = (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return closed || ::chmod(name.constData(), S_IRWXU) == 0;
}

} // namespace

QString config()
{
    return programFolder("XDG_CONFIG_HOME", u".config"_s);
}

QString data()
{
    return programFolder("XDG_DATA_HOME", u".local/share"_s);
}

QString state()
{
    return programFolder("XDG_STATE_HOME", u".local/state"_s);
}

QString cache()
{
    return programFolder("XDG_CACHE_HOME", u".cache"_s);
}

QString runtime()
{
    const QString named = fromEnvironment("XDG_RUNTIME_DIR");
    if (!named.isEmpty() && isPrivateFolder(named + PathSeparator + ProgramFolder))
        return named + PathSeparator + ProgramFolder + PathSeparator;
    const QString inTemp =
        QDir::tempPath() + PathSeparator + ProgramFolder + u'-' + QString::number(::geteuid());
    // Somebody else may have taken that name in the common folder.
    return isPrivateFolder(inTemp) ? inTemp + PathSeparator : cache();
}

} // namespace quaverly::folders
