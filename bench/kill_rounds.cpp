// SPDX-License-Identifier: GPL-3.0-or-later
#include "KillActs.h"

#include "desktop/FileHelpers.h"
#include "history/ChangeTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quaverly;

// Kills the program at a random moment of a random act, starts it again, and compares disk, records and
// tracks: kill_rounds [rounds] [seed]. Exits with 1 after a difference.
namespace bench {

namespace {

constexpr int Songs = 30;
constexpr int Lists = 3;
constexpr int SmallSong = 20'000;
constexpr int LargeSong = 3'000'000;
constexpr int LongestLife = 150'000; // microseconds

QByteArray soundOf(qint64 song)
{
    const QByteArray phrase = "song " + QByteArray::number(song) + ';';
    return phrase.repeated((song % 5 == 0 ? LargeSong : SmallSong) / phrase.size());
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** What stands in none of the states that may be found, or all of them for a mixture of several. */
QString notAllowed(const QString &state, const QStringList &allowed)
{
    QString strange;
    for (const QString &line : state.split(u'\n')) {
        if (std::ranges::none_of(allowed, [&](const QString &text) { return text.contains(line + u'\n'); }))
            strange += line + u'\n';
    }
    return u"not as expected:\n"_s +
           (strange.isEmpty() ? state + u"allowed:\n"_s + allowed.join(u"or:\n"_s) : strange);
}

/** The catalogue, the music in three folders, one of them on another file system where there is one. */
class Rounds final
{
public:
    explicit Rounds(quint32 seed);
    [[nodiscard]] int run(int rounds);

private:
    void makeSong(Program &program, int number);
    void liveAndDie(int kind);
    [[nodiscard]] qint64 renamesUnderWay();
    [[nodiscard]] QStringList differences(const Journal &journal);
    void compareDisk(const State &state, QStringList &found);
    void compareTracks(Program &program, const State &state, QStringList &found);
    void compareHistory(Program &program, const State &state, QStringList &found);

    QTemporaryDir m_folder;
    QTemporaryDir m_elsewhere{QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm/quaverly-XXXXXX"_s
                                                                    : QDir::tempPath() + u"/other-XXXXXX"_s};
    const QString m_data = m_folder.path() + u"/data/"_s;
    const QString m_journal = m_folder.filePath(u"journal"_s);
    const QStringList m_folders{m_folder.path() + u"/music/"_s, m_folder.path() + u"/more music/"_s,
                                m_elsewhere.path() + u'/'};
    std::mt19937 m_random;
    /** The change that made the songs: taken back, their files would be nobody's. */
    qint64 m_made = 0;
};

Rounds::Rounds(quint32 seed) : m_random(seed)
{
    for (const QString &folder : m_folders + QStringList(m_data))
        QDir().mkpath(folder);
    Program program(m_data);
    program.engine.CreateEmpty(program.catalogue.DatabaseFile);
    if (!program.start())
        std::exit(2);
    for (int number = 1; number <= Songs; ++number)
        makeSong(program, number);
    for (int list = 1; list <= Lists; ++list)
        program.lists.addList(u"List %1"_s.arg(list), {});
    program.catalogue.CatalogueDb->endChange();
    m_made = dao::History(*program.catalogue.CatalogueDb).undoable()->id;
}

void Rounds::makeSong(Program &program, int number)
{
    const auto row = program.catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s);
    row->AddNew();
    row->setValue(u"SongName"_s, u"Song %1"_s.arg(number));
    row->setValue(u"PathName"_s, m_folders.first());
    row->setValue(u"FileName"_s, u"song %1.mp3"_s.arg(number));
    if (number == 1)
        row->setValue(u"ID"_s, u"taken"_s);
    row->Update();
    const qint64 song = row->LastModified().key;
    QFile file(m_folders.first() + u"song %1.mp3"_s.arg(number));
    if (!file.open(QIODevice::WriteOnly) || file.write(soundOf(song)) < 0)
        std::exit(2);
}

void Rounds::liveAndDie(int kind)
{
    const quint32 seed = m_random();
    int ready[2] = {};
    if (::pipe(ready) != 0)
        std::exit(2);
    const pid_t child = ::fork();
    if (child == 0) {
        // No destructors here: the process is to be killed.
        auto *program = new Program(m_data);
        if (!program->start())
            std::_Exit(2);
        Acts acts(*program, m_folders, m_journal, seed);
        static_cast<void>(::write(ready[1], "", 1));
        acts.act(kind);
        acts.goOn();
    }
    char byte = 0;
    ::close(ready[1]);
    static_cast<void>(::read(ready[0], &byte, 1));
    ::close(ready[0]);
    ::usleep(std::uniform_int_distribution<useconds_t>(0, LongestLife)(m_random));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFSIGNALED(status))
        std::exit(2);
}

qint64 Rounds::renamesUnderWay()
{
    dao::DBEngine engine(catalogueSchema());
    const auto database = engine.OpenDatabase(m_data + u"QVdata.mdb"_s);
    return database->OpenRecordset(u"tblRenameNotes"_s)->RecordCount();
}

QStringList Rounds::differences(const Journal &journal)
{
    QStringList found;
    Program program(m_data);
    if (!program.start())
        return {u"The catalogue does not open: "_s + program.desktop.told.join(u'|')};
    for (const QString &told : program.desktop.told)
        found += u"told at the start: "_s + told;
    const State state = program.state();
    if (!journal.allowed.contains(state.text()))
        found += notAllowed(state.text(), journal.allowed);
    compareDisk(state, found);
    compareTracks(program, state, found);
    compareHistory(program, state, found);
    return found;
}

// The newest change can be taken back, files and all, and made again.
void Rounds::compareHistory(Program &program, const State &state, QStringList &found)
{
    program.catalogue.CatalogueDb->endChange();
    const dao::History history(*program.catalogue.CatalogueDb);
    const auto newest = history.undoable();
    if (!newest || newest->id <= m_made)
        return;
    for (const WalkDirection direction : {WalkDirection::Back, WalkDirection::Again}) {
        for (const QString &told : ChangeWalk(program.catalogue).go(*newest, direction))
            found += u"in the way of the newest change: "_s + told;
        const qsizetype before = found.size();
        compareDisk(program.state(), found);
        compareTracks(program, program.state(), found);
        if (found.size() > before)
            found += u"with \"%1\" taken %2"_s.arg(
                ChangeTexts(*program.catalogue.CatalogueDb).sentence(*newest),
                direction == WalkDirection::Back ? u"back"_s : u"back and made again"_s);
    }
    if (!(program.state() == state))
        found += u"taken back and made again, it is another catalogue:\n"_s + program.state().text();
}

void Rounds::compareDisk(const State &state, QStringList &found)
{
    QStringList files;
    for (const QString &folder : m_folders) {
        for (const QString &name : QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System))
            files += folder + name;
    }
    for (const auto &[id, song] : state.songs) {
        if (bytesOf(song.path) != soundOf(id))
            found += u"not the song's file: "_s + song.path;
        files.removeAll(song.path);
    }
    for (const QString &file : std::as_const(files))
        found += u"named by no record: "_s + file;
}

void Rounds::compareTracks(Program &program, const State &state, QStringList &found)
{
    const auto rows = program.catalogue.CatalogueDb->OpenRecordset(
        u"Select * from tblPlayListDetail Order by ListID, ListTrackID"_s, dao::RecordsetType::Snapshot);
    std::map<qint64, qint64> highest;
    for (; !rows->atEOF(); rows->MoveNext()) {
        const qint64 list = rows->value(u"ListID"_s).toLongLong();
        const qint64 number = rows->value(u"ListTrackID"_s).toLongLong();
        const auto song = state.songs.find(rows->value(u"ContactRecordID"_s).toLongLong());
        if (song == state.songs.end() || song->second.path != rows->text(u"FileName"_s))
            found += u"a track of another file: "_s + rows->text(u"FileName"_s);
        if (number != ++highest[list])
            found += u"list %1 has the number %2 in place %3"_s.arg(list).arg(number).arg(highest[list]);
    }
}

int Rounds::run(int rounds)
{
    std::map<QString, int> deaths;
    int renames = 0;
    int differing = 0;
    for (int round = 0; round < rounds; ++round) {
        liveAndDie(round % Acts::Kinds);
        const Journal journal = readJournal(m_journal);
        ++deaths[journal.act];
        renames += renamesUnderWay() > 0;
        const QStringList found = differences(journal);
        differing += !found.isEmpty();
        for (const QString &difference : found)
            std::printf("round %d, killed in %s: %s\n", round, qPrintable(journal.act),
                        qPrintable(difference));
        if (!found.isEmpty())
            break;
    }
    std::printf("killed in");
    for (const auto &[act, count] : deaths)
        std::printf(" %s %d", qPrintable(act), count);
    std::printf("; with a rename under way %d; differences %d\n", renames, differing);
    return differing > 0 ? 1 : 0;
}

} // namespace

} // namespace bench

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    constexpr int UsualRounds = 200;
    const QStringList arguments = QCoreApplication::arguments();
    const int rounds = arguments.size() > 1 ? arguments.at(1).toInt() : UsualRounds;
    const quint32 seed = arguments.size() > 2 ? arguments.at(2).toUInt() : std::random_device()();
    std::printf("%d rounds, seed %u\n", rounds, seed);
    return bench::Rounds(seed).run(rounds);
}
