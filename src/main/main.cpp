// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/EmptyPaste.h"
#include "desktop/QtDesktop.h"
#include "main/Program.h"
#include "main/Screenshots.h"
#include "platform/options/Folders.h"
#include "platform/options/SingleInstance.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr char Help[] = "Usage: quaverly [OPTION]... [FILE]\n"
                        "A music catalogue and player for one person.\n"
                        "\n"
                        "FILE is a catalogue to open, or a music file to play without one.\n"
                        "\n"
                        "      --screenshots FOLDER  save pictures of the screens there, and end\n"
                        "  -h, --help                show this help, and end\n"
                        "  -v, --version             show the version, and end\n";

/** What a start without a display can answer; nothing when the program is to start. */
const char *plainAnswer(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArrayView argument(argv[i]);
        if (argument == "--help" || argument == "-h")
            return Help;
        if (argument == "--version" || argument == "-v")
            return "Quaverly " QUAVERLY_VERSION "\n";
    }
    return nullptr;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char **argv)
{
    if (const char *answer = plainAnswer(argc, argv)) {
        std::fputs(answer, stdout);
        return 0;
    }
    if (!hasDisplay()) {
        std::fputs("quaverly: there is no display to show a window on.\n", stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(u"Quaverly"_s);
    QApplication::setApplicationVersion(QStringLiteral(QUAVERLY_VERSION));
    QApplication::setDesktopFileName(u"quaverly"_s);
    // The main screen's unload decides when the process ends, since another catalogue may follow.
    QApplication::setQuitOnLastWindowClosed(false);

    QStringList arguments = QApplication::arguments().mid(1);
    QString pictures;
    if (const qsizetype at = arguments.indexOf(u"--screenshots"_s); at >= 0) {
        pictures = arguments.value(at + 1, u"."_s);
        arguments.remove(at, std::min<qsizetype>(2, arguments.size() - at));
    }

    const quaverly::EmptyPaste emptyPaste;
    quaverly::OptionsStore store;
    quaverly::QtDesktop desktop(store);
    quaverly::SingleInstance instance(quaverly::folders::runtime());
    quaverly::Program program(desktop, store, instance, arguments.join(u' '), [] { QApplication::quit(); });
    quaverly::Screenshots screenshots(
        pictures, [&program] { return program.mainScreen(); }, [] { QApplication::quit(); });
    if (!pictures.isEmpty())
        screenshots.start();
    return program.start() ? QApplication::exec() : 0;
}
