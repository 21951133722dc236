// SPDX-License-Identifier: GPL-3.0-or-later
// The main screen in use, each act measured until its result is painted.
#include "BareSqlite.h"
#include "Bench.h"
#include "BenchCatalogue.h"

#include "catalogue/SongFields.h"
#include "desktop/QtDesktop.h"
#include "main/NameList.h"
#include "main/Program.h"
#include "platform/options/SingleInstance.h"
#include "songlist/SongGrid.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NoSong = "no song bears this";

/** Answers every box with its first button, and the prompt of Find. */
class AnsweringDesktop final : public quaverly::QtDesktop
{
public:
    using QtDesktop::QtDesktop;

    quaverly::Answer MessageBox(const QString &, const QString &, quaverly::Icon, quaverly::Buttons,
                                std::optional<quaverly::Answer>) override
    {
        return quaverly::Answer::Ok;
    }
    QString InputPrompt(const QString &, const QString &, const QString &, bool) override
    {
        return QString::fromLatin1(NoSong);
    }
};

/** The program with its main screen up on a catalogue of that many songs. */
class Screen final
{
public:
    explicit Screen(int songs)
        : m_store(m_folder.filePath(u"options.ini"_s)), m_desktop(m_store), m_instance(m_folder.path()),
          m_program(m_desktop, m_store, m_instance, {bench::catalogueOf(songs)}, [] {})
    {
        if (!m_program.start())
            qFatal("the program did not start");
        QCoreApplication::processEvents();
        paint();
    }
    ~Screen() { nameList().close(); }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    [[nodiscard]] quaverly::NameList &nameList() { return *m_program.mainScreen(); }
    [[nodiscard]] quaverly::SongGrid &grid() { return *control<quaverly::SongGrid>("Table1"); }
    template <typename T> [[nodiscard]] T *control(const char *name)
    {
        return nameList().findChild<T *>(QString::fromLatin1(name));
    }
    void choose(const char *entry) { control<QAction>(entry)->trigger(); }
    /** What changed; the whole window at first. */
    void paint() { QCoreApplication::sendPostedEvents(); }

private:
    QTemporaryDir m_folder;
    quaverly::OptionsStore m_store;
    AnsweringDesktop m_desktop;
    quaverly::SingleInstance m_instance;
    quaverly::Program m_program;
};

QString sizeOf(int songs)
{
    return songs >= 1'000'000 ? u"1M"_s : u"100k"_s;
}

double quantile95(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() * 95 / 100];
}

void sort(bench::Suite &suite, Screen &screen, bench::BareSqlite &bare, const QString &size)
{
    const QString name = u"sort change, painted "_s + size;
    if (!suite.wants(name))
        return;
    suite.compare(
        name, 2,
        [&] {
            screen.nameList().set_cmbSort(u"Genre"_s);
            screen.paint();
        },
        [&] { bare.walk("SELECT RecordID FROM tblContacts ORDER BY Genre, Artist, SongName, RecordID"); });
    screen.nameList().set_cmbSort(u"Song Name"_s);
}

double locate(bench::Suite &suite, Screen &screen, const QString &size)
{
    const QString name = u"Locate a key, painted "_s + size;
    if (!suite.wants(name))
        return 0;
    auto *box = screen.control<QLineEdit>("txtLocate");
    QList<double> keys;
    for (int round = 0; round < 10; ++round) {
        for (const QString &text :
             {u"l"_s, u"lo"_s, u"love"_s, u"love r"_s, u"x"_s, u"été"_s, u"夜"_s, u""_s}) {
            box->setText(text);
            keys.append(bench::costOf([&] {
                            QKeyEvent up(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
                            QCoreApplication::sendEvent(box, &up);
                            screen.paint();
                        }).wall);
        }
    }
    box->clear();
    suite.report(name, 0.75, bench::median(keys), bench::Frame, "ms");
    return bench::median(keys);
}

void scroll(bench::Suite &suite, Screen &screen, const QString &size)
{
    const QString name = u"page jump, 95 of 100, painted "_s + size;
    if (!suite.wants(name))
        return;
    // The keys of a list that was opened page by page are read once the program is idle.
    QCoreApplication::processEvents();
    QRandomGenerator random(3);
    QScrollBar *bar = screen.grid().verticalScrollBar();
    QList<double> jumps;
    for (int i = 0; i < 100; ++i) {
        const int place = i == 0 ? bar->maximum() : random.bounded(bar->maximum());
        jumps.append(bench::costOf([&] {
                         bar->setValue(place);
                         screen.paint();
                     }).wall);
    }
    suite.report(name, 1, quantile95(jumps), bench::Frame, "ms");
}

void mark(bench::Suite &suite, Screen &screen, const QString &size)
{
    const QString name = u"a mark, painted "_s + size;
    if (!suite.wants(name))
        return;
    quaverly::SongGrid &grid = screen.grid();
    QList<double> marks;
    for (int i = 0; i < 40; ++i) {
        const int row = grid.verticalScrollBar()->value() + i % 10;
        const QPointF place = grid.visualRect(grid.model()->index(row, 0)).center();
        marks.append(bench::costOf([&] {
                         QMouseEvent down(QEvent::MouseButtonPress, place,
                                          grid.viewport()->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                                          Qt::NoModifier);
                         QCoreApplication::sendEvent(grid.viewport(), &down);
                         QCoreApplication::sendPostedEvents();
                         screen.paint();
                     }).wall);
    }
    suite.report(name, 1, bench::median(marks), bench::Frame, "ms");
}

void filter(bench::Suite &suite, Screen &screen, bench::BareSqlite &bare, const QString &size)
{
    const QString name = u"filter on two fields, painted "_s + size;
    if (!suite.wants(name))
        return;
    QList<double> ours, baseline;
    for (int i = 0; i < 5; ++i) {
        screen.choose("ShowAllMenu");
        screen.choose("SelectionCriteria");
        auto *form = screen.control<QDialog>("CriteriaForm");
        form->findChild<QPlainTextEdit *>(u"txtCriteria"_s)
            ->setPlainText(u"Genre = \"Jazz\" and Rating = \"****\""_s);
        ours.append(bench::costOf([&] {
                        form->findChild<QPushButton *>(u"cmdApplyCriteria"_s)->click();
                        screen.paint();
                    }).wall);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        baseline.append(bench::costOf([&] {
                            bare.walk("SELECT RecordID FROM tblContacts WHERE (Genre = 'Jazz' AND Rating = "
                                      "'****') ORDER BY SongName, Artist, RecordID");
                        }).wall);
    }
    screen.choose("ShowAllMenu");
    suite.report(name, 1.3, bench::median(ours), bench::median(baseline), "ms");
}

void find(bench::Suite &suite, Screen &screen, const QString &path, const QString &size)
{
    const QString name = u"Find Any Text, miss, painted "_s + size;
    if (!suite.wants(name))
        return;
    QStringList terms;
    for (const quaverly::SongField &field : quaverly::songFields()) {
        if (field.searched == quaverly::Searched::AsText)
            terms.append(QString(field.name) + u" LIKE '%"_s + QString::fromLatin1(NoSong) + u"%'"_s);
    }
    const QByteArray sql =
        u"SELECT RecordID FROM tblContacts NOT INDEXED WHERE "_s.toUtf8() + terms.join(u" OR "_s).toUtf8();
    bench::BareSqlite bare(path, bench::Collate::BuiltIn);
    QList<double> ours, baseline;
    for (int i = 0; i < 5; ++i) {
        screen.choose("ShowAllMenu");
        ours.append(bench::costOf([&] {
                        screen.choose("FindEditMenu");
                        screen.paint();
                    }).wall);
        baseline.append(bench::costOf([&] { bare.walk(sql.constData()); }).wall);
    }
    screen.choose("ShowAllMenu");
    suite.report(name, 0.8, bench::median(ours), bench::median(baseline), "ms");
}

/** What a key of Locate takes. */
double run(bench::Suite &suite, int songs)
{
    const QString size = sizeOf(songs);
    const QString path = bench::catalogueOf(songs);
    Screen screen(songs);
    bench::BareSqlite bare(path, bench::Collate::AsTheStore);
    sort(suite, screen, bare, size);
    const double key = locate(suite, screen, size);
    scroll(suite, screen, size);
    mark(suite, screen, size);
    filter(suite, screen, bare, size);
    find(suite, screen, path, size);
    return key;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    bench::Suite suite(QApplication::arguments().mid(1));
    const double few = run(suite, 100'000);
    const double many = run(suite, 1'000'000);
    if (few > 0 && many > 0)
        suite.report(u"Locate, 1M beside 100k"_s, 1.5, many, few, "ms");
    return suite.exitCode();
}
