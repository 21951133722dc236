// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Display.h"

#include "support/Files.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

TEST(TheDisplay, CountsOnlyWhenQtCanSpeakToIt)
{
    const QTemporaryDir bare;
    const QTemporaryDir full;
    writeFile(full.filePath(u"platforms/libqwayland-generic.so"_s));
    struct
    {
        const char *platform;
        const char *x;
        const char *wayland;
        QStringList plugins;
        const char *said;
    } const cases[] = {{nullptr, "", "", {full.path()}, "no display"},
                       {nullptr, "", "wayland-0", {bare.path()}, "qt6-wayland"},
                       {nullptr, "", "wayland-0", {bare.path(), full.path()}, ""},
                       {nullptr, ":0", "wayland-0", {bare.path()}, ""},
                       {"offscreen", "", "", {}, ""}};
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    for (const auto &[platform, x, wayland, plugins, said] : cases) {
        SCOPED_TRACE(said);
        platform != nullptr ? qputenv("QT_QPA_PLATFORM", platform) : qunsetenv("QT_QPA_PLATFORM");
        qputenv("DISPLAY", x);
        qputenv("WAYLAND_DISPLAY", wayland);
        const QByteArray trouble = displayTrouble(plugins);
        EXPECT_TRUE(*said == '\0' ? trouble.isEmpty() : trouble.contains(said)) << trouble.constData();
    }
    qputenv("QT_QPA_PLATFORM", before);
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
}

} // namespace quaverly::test
