// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/EmptyPaste.h"
#include "desktop/Icons.h"
#include "desktop/QtDesktop.h"
#include "main/Display.h"
#include "main/Program.h"
#include "main/Screenshots.h"
#include "platform/options/Folders.h"
#include "platform/options/SingleInstance.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr char Help[] = "Usage: quaverly [OPTION]... [FILE]...\n"
                        "A music catalogue and player for one person.\n"
                        "\n"
                        "FILE is a catalogue to open, or each is a music file to play without one.\n"
                        "\n"
                        "      --screenshots FOLDER  save pictures of the screens there, and end\n"
                        "      --music FOLDER        with it: add that folder of music first, and go\n"
                        "                            through all main screens\n"
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

/** Takes an option and its value out of the arguments; empty when it was not given. */
QString takeOption(QStringList &arguments, const QString &name)
{
    const qsizetype at = arguments.indexOf(name);
    if (at < 0)
        return {};
    QString value = arguments.value(at + 1, u"."_s);
    arguments.remove(at, std::min<qsizetype>(2, arguments.size() - at));
    return value;
}

} // namespace

int main(int argc, char **argv)
{
    if (const char *answer = plainAnswer(argc, argv)) {
        std::fputs(answer, stdout);
        return 0;
    }
    if (const QByteArray trouble = quaverly::displayTrouble(QApplication::libraryPaths());
        !trouble.isEmpty()) {
        std::fprintf(stderr, "quaverly: %s\n", trouble.constData());
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(u"Quaverly"_s);
    QApplication::setApplicationVersion(QStringLiteral(QUAVERLY_VERSION));
    QApplication::setDesktopFileName(u"quaverly"_s);
    QApplication::setWindowIcon(quaverly::programIcon());
    // The main screen's unload decides when the process ends, since another catalogue may follow.
    QApplication::setQuitOnLastWindowClosed(false);

    QStringList arguments = QApplication::arguments().mid(1);
    const QString pictures = takeOption(arguments, u"--screenshots"_s);
    const QString music = takeOption(arguments, u"--music"_s);

    const quaverly::EmptyPaste emptyPaste;
    quaverly::OptionsStore store;
    quaverly::QtDesktop desktop(store);
    quaverly::SingleInstance instance(quaverly::folders::runtime());
    // Pictures are taken without a sound.
    quaverly::Program program(desktop, store, instance, arguments, [] { QApplication::quit(); },
                              {pictures.isEmpty() ? QString() : u"null"_s, {}, false, {}});
    quaverly::Screenshots screenshots(pictures, music, [](bool complete) {
        if (!complete)
            std::fputs("quaverly: a screen did not come.\n", stderr);
        QApplication::exit(complete ? 0 : 1);
    });
    if (!pictures.isEmpty())
        screenshots.start();
    return program.start() ? QApplication::exec() : 0;
}
