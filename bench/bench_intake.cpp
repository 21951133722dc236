// SPDX-License-Identifier: GPL-3.0-or-later
// The scan of a music folder, program and screens included, beside a plain loop over the same files.
#include "Bench.h"

#include "desktop/QtDesktop.h"
#include "intake/MusicLoader.h"
#include "main/NameList.h"
#include "main/Program.h"
#include "platform/options/SingleInstance.h"
#include "samples/Corpus.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <fileref.h>
#include <sys/stat.h>
#include <tag.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Files = 100'000;

/** Shows no box, so that a run needs nobody. */
class SilentDesktop final : public quaverly::QtDesktop
{
public:
    using QtDesktop::QtDesktop;
    quaverly::Answer MessageBox(const QString &, const QString &, quaverly::Icon, quaverly::Buttons,
                                std::optional<quaverly::Answer>) override
    {
        return quaverly::Answer::Ok;
    }
};

QString corpus()
{
    const QString folder = bench::dataFolder() + u"music-%1/"_s.arg(Files);
    const QString whole = bench::dataFolder() + u"music-%1.whole"_s.arg(Files);
    if (!QFile::exists(whole)) {
        std::fprintf(stderr, "making %d song files ...\n", Files);
        samples::makeCorpus(folder, Files);
        QFile mark(whole);
        static_cast<void>(mark.open(QIODevice::WriteOnly));
    }
    return folder;
}

QStringList filesOf(const QString &folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    return files;
}

/** Keeps the compiler from leaving a loop out whose result nobody reads. */
std::size_t g_seen = 0;

void tagLoop(const QStringList &files)
{
    for (const QString &file : files) {
        const TagLib::FileRef ref(QFile::encodeName(file).constData());
        if (!ref.isNull() && ref.tag() != nullptr)
            g_seen += ref.tag()->title().size() + ref.tag()->artist().size();
        if (!ref.isNull() && ref.audioProperties() != nullptr)
            g_seen += static_cast<std::size_t>(ref.audioProperties()->lengthInSeconds());
    }
}

void statLoop(const QString &folder)
{
    for (const QString &file : filesOf(folder)) {
        struct stat info = {};
        g_seen += ::stat(QFile::encodeName(file).constData(), &info) == 0 ? 1 : 0;
    }
}

/** A program of its own on an empty catalogue, which scans the folder twice. */
void scanTwice(const QString &folder, bench::Cost &first, bench::Cost &second)
{
    QTemporaryDir temporary;
    const QString catalogue = temporary.filePath(u"QVdata.mdb"_s);
    QFile::copy(QApplication::applicationDirPath() + u"/QVdata.mdb"_s, catalogue);
    quaverly::OptionsStore store(temporary.filePath(u"options.ini"_s));
    SilentDesktop desktop(store);
    quaverly::SingleInstance instance(temporary.path());
    quaverly::Program program(desktop, store, instance, {catalogue}, [] {});
    if (!program.start())
        qFatal("The program did not start.");
    desktop.letEventsRun();
    first = bench::costOf([&] { program.mainScreen()->loader().LoadMusicFiles(folder, {}); });
    second = bench::costOf([&] { program.mainScreen()->loader().LoadMusicFiles(folder, {}); });
    program.mainScreen()->close();
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    bench::Suite suite(QApplication::arguments().mid(1));
    const bool wanted = suite.wants(u"first scan processor"_s) || suite.wants(u"first scan wall"_s) ||
                        suite.wants(u"second scan"_s);
    if (!wanted)
        return 0;
    const QString folder = corpus();
    const QStringList files = filesOf(folder);
    tagLoop(files); // so that all of them read from memory
    QList<double> firstWall, firstProcessor, secondWall, loopWall, loopProcessor, statWall;
    for (int run = 0; run < 5; ++run) {
        bench::Cost first;
        bench::Cost second;
        scanTwice(folder, first, second);
        const bench::Cost loop = bench::costOf([&] { tagLoop(files); });
        firstWall.append(first.wall);
        firstProcessor.append(first.processor);
        secondWall.append(second.wall);
        loopWall.append(loop.wall);
        loopProcessor.append(loop.processor);
        statWall.append(bench::costOf([&] { statLoop(folder); }).wall);
    }
    const auto report = [&](const QString &name, double goal, const QList<double> &ours,
                            const QList<double> &baseline) {
        if (suite.wants(name))
            suite.report(name, goal, bench::median(ours), bench::median(baseline), "ms");
    };
    report(u"first scan processor"_s, 2.0, firstProcessor, loopProcessor);
    report(u"first scan wall"_s, 1.5, firstWall, loopWall);
    report(u"second scan"_s, 2.5, secondWall, statWall);
    return suite.exitCode() + (g_seen == 0 ? 1 : 0);
}
