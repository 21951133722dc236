// SPDX-License-Identifier: GPL-3.0-or-later
// From the start of a process to the first painted grid, and its memory then, beside an empty window.
#include "Bench.h"
#include "BenchCatalogue.h"

#include "desktop/QtDesktop.h"
#include "main/NameList.h"
#include "main/Program.h"
#include "platform/options/SingleInstance.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

double residentMebibytes()
{
    QFile status(u"/proc/self/status"_s);
    static_cast<void>(status.open(QIODevice::ReadOnly));
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

/** Ends the process once the watched view has been painted, with its memory on the output. */
class EndAtPaint final : public QObject
{
public:
    explicit EndAtPaint(QAbstractItemView *view) : QObject(view)
    {
        view->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] {
                std::printf("%f\n", residentMebibytes());
                std::fflush(stdout);
                std::_Exit(0);
            });
        return false;
    }
};

int emptyWindow()
{
    QMainWindow window;
    auto *view = new QTableView(&window);
    window.setCentralWidget(view);
    new EndAtPaint(view);
    window.resize(1180, 740);
    window.show();
    return QApplication::exec();
}

int wholeProgram(const QString &catalogue)
{
    const QTemporaryDir temporary;
    quaverly::OptionsStore store(temporary.filePath(u"options.ini"_s));
    quaverly::QtDesktop desktop(store);
    quaverly::SingleInstance instance(temporary.path());
    quaverly::Program program(desktop, store, instance, {catalogue}, [] {});
    if (!program.start())
        return 1;
    auto *grid = program.mainScreen()->findChild<QTableView *>(u"Table1"_s);
    // The rows count, not the frame around them: the first activation has opened the whole list.
    QTimer::singleShot(0, grid, [grid] { new EndAtPaint(grid); });
    return QApplication::exec();
}

struct Start
{
    double milliseconds = 0;
    double mebibytes = 0;
};

Start startOf(const QStringList &arguments)
{
    Start start;
    start.milliseconds = bench::costOf([&] {
                             QProcess process;
                             process.start(QApplication::applicationFilePath(), arguments);
                             process.waitForFinished(120'000);
                             start.mebibytes = process.readAllStandardOutput().trimmed().toDouble();
                         }).wall;
    return start;
}

void compare(bench::Suite &suite, int songs, const QString &size, double goal, double mebibytesMore)
{
    const QString timeName = u"start "_s + size;
    const QString memoryName = u"memory over empty window "_s + size;
    if (!suite.wants(timeName) && !suite.wants(memoryName))
        return;
    const QString catalogue = bench::catalogueOf(songs);
    QList<double> ours, baseline, oursMemory, baselineMemory;
    for (int run = 0; run < 7; ++run) {
        const Start program = startOf({u"--program"_s, catalogue});
        const Start empty = startOf({u"--empty"_s});
        ours.append(program.milliseconds);
        baseline.append(empty.milliseconds);
        oursMemory.append(program.mebibytes);
        baselineMemory.append(empty.mebibytes);
    }
    suite.report(timeName, goal, bench::median(ours), bench::median(baseline), "ms");
    const double base = bench::median(baselineMemory);
    suite.report(memoryName, (base + mebibytesMore) / base, bench::median(oursMemory), base, "MiB");
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.value(0) == "--empty"_L1)
        return emptyWindow();
    if (arguments.value(0) == "--program"_L1)
        return wholeProgram(arguments.value(1));
    bench::Suite suite(arguments);
    compare(suite, 100'000, u"100k"_s, 3, 30);
    compare(suite, 1'000'000, u"1M"_s, 4, 60);
    return suite.exitCode();
}
