// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Display.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** X comes with Qt's own library; Wayland is a plugin that a machine may lack. */
bool speaksWayland(const QStringList &pluginFolders)
{
    return std::ranges::any_of(pluginFolders, [](const QString &folder) {
        return !QDir(folder + u"/platforms"_s).entryList({u"libqwayland*.so"_s}, QDir::Files).isEmpty();
    });
}

} // namespace

QByteArray displayTrouble(const QStringList &pluginFolders)
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY"))
        return {};
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return "There is no display to show a window on.";
    if (!speaksWayland(pluginFolders))
        return "This is a Wayland session, and Qt's plugin for it is missing: install the package "
               "qt6-wayland.";
    return {};
}

} // namespace quaverly
