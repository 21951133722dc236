// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace {

/** Keeps the tests out of the folders of whoever runs them. */
void moveHome(const QTemporaryDir &home)
{
    constexpr std::array folders = {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME",
                                    "XDG_RUNTIME_DIR"};
    for (const char *folder : folders) {
        const QString path = home.filePath(QString::fromLatin1(folder));
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(folder, QFile::encodeName(path));
    }
}

/** Leaves out what the offscreen platform says at every window. */
void printMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (!message.startsWith(QStringLiteral("This plugin does not support")))
        std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(printMessage);
    const QTemporaryDir home;
    moveHome(home);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quaverly"));
    return RUN_ALL_TESTS();
}
