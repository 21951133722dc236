// SPDX-License-Identifier: GPL-3.0-or-later
// Changes with their entry in the journal, beside the same statements without one; taking back beside the
// bare statement.
#include "Bench.h"
#include "BenchCatalogue.h"

#include "catalogue/CatalogueSchema.h"
#include "platform/store/History.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/** A copy of a bench's catalogue, opened with the journal or without. */
class OpenCopy
{
public:
    OpenCopy(int songs, bool journal, const QString &name)
        : m_path(bench::dataFolder() + u'/' + name), m_engine(schema(journal))
    {
        // A run that was cut off leaves its log, which would be taken for the copy's.
        for (const QString &part : {m_path, m_path + u"-wal"_s, m_path + u"-shm"_s})
            QFile::remove(part);
        QFile::copy(bench::catalogueOf(songs), m_path);
        m_db = m_engine.OpenDatabase(m_path);
    }
    ~OpenCopy()
    {
        m_db.reset();
        QFile::remove(m_path);
    }
    OpenCopy(const OpenCopy &) = delete;
    OpenCopy &operator=(const OpenCopy &) = delete;

    [[nodiscard]] dao::Database &db() { return *m_db; }
    void change(const QString &sql)
    {
        m_db->Execute(sql);
        m_db->endChange();
    }
    /** The statement's own work: what it did is rolled back. */
    void tryOut(const QString &sql)
    {
        m_db->workspace().BeginTrans();
        m_db->Execute(sql);
        m_db->workspace().Rollback();
    }
    /** What is left when it is closed for good. */
    [[nodiscard]] qint64 closedBytes()
    {
        m_db.reset();
        return bytes();
    }
    [[nodiscard]] qint64 bytes() const
    {
        return QFileInfo(m_path).size() + QFileInfo(m_path + u"-wal"_s).size();
    }

private:
    static dao::Schema schema(bool journal)
    {
        dao::Schema schema = quaverly::catalogueSchema();
        if (!journal)
            schema.logged.clear();
        return schema;
    }

    QString m_path;
    dao::DBEngine m_engine;
    std::unique_ptr<dao::Database> m_db;
};

void edit(dao::Database &db, int round)
{
    const auto songs =
        db.OpenRecordset(u"Select * From tblContacts Where RecordID = 77"_s, dao::RecordsetType::Dynaset);
    songs->Edit();
    for (const QString &field : {u"SongName"_s, u"Artist"_s, u"Genre"_s, u"AlbumName"_s, u"Notes"_s})
        songs->setValue(field, QString::number(round));
    songs->Update();
    db.endChange();
}

/** Bytes by which a replace in one field makes the catalogue grow. */
double grownBy(int songs, bool journal)
{
    OpenCopy copy(songs, journal, u"history-size.mdb"_s);
    const qint64 before = copy.bytes();
    copy.change(u"Update tblContacts Set Genre = 'Rock and roll'"_s);
    return static_cast<double>(copy.closedBytes() - before);
}

void run(bench::Suite &suite, int songs)
{
    const QString size = songs >= 1'000'000 ? u"1M"_s : u"100k"_s;
    if (!suite.wants(u"history "_s + size))
        return;
    const double withJournal = grownBy(songs, true);
    suite.report(u"history "_s + size + u": bytes a row of a replace"_s, 1,
                 (withJournal - grownBy(songs, false)) / songs, 100, "B");
    OpenCopy ours(songs, true, u"history-with.mdb"_s);
    OpenCopy bare(songs, false, u"history-without.mdb"_s);
    const QString replace = u"Update tblContacts Set Genre = 'Rock and roll'"_s;
    const QString removal = u"Delete * From tblContacts Where RecordID > 1000"_s;
    suite.compare(
        u"history "_s + size + u": replace"_s, 1.5, [&] { ours.tryOut(replace); },
        [&] { bare.tryOut(replace); });
    suite.compare(
        u"history "_s + size + u": delete"_s, 1.5, [&] { ours.tryOut(removal); },
        [&] { bare.tryOut(removal); });

    QList<double> edits;
    QList<double> bareEdits;
    for (int round = 0; round < 40; ++round) {
        edits.append(bench::costOf([&] { edit(ours.db(), round); }).wall);
        bareEdits.append(bench::costOf([&] { edit(bare.db(), round); }).wall);
    }
    suite.report(u"history "_s + size + u": one edit, beside 2 ms more"_s, 1, bench::median(edits),
                 bench::median(bareEdits) + 2, "ms");

    dao::History history(ours.db());
    const auto takeBack = [&](const QString &name, const QString &sql) {
        ours.change(sql);
        const double bareCost = bench::costOf([&] { bare.tryOut(sql); }).wall;
        const double back = bench::costOf([&] { history.takeBack(*history.undoable()); }).wall;
        const double again = bench::costOf([&] { history.makeAgain(*history.redoable()); }).wall;
        history.takeBack(*history.undoable());
        suite.report(u"history "_s + size + u": take back a "_s + name, 3, back, bareCost, "ms");
        suite.report(u"history "_s + size + u": make a "_s + name + u" again"_s, 3, again, bareCost, "ms");
    };
    takeBack(u"replace"_s, replace);
    takeBack(u"delete"_s, removal);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    run(suite, 100'000);
    run(suite, 1'000'000);
    return suite.exitCode();
}
