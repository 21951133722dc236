// SPDX-License-Identifier: GPL-3.0-or-later
// Reports until they are painted, beside string appends; CSV files beside the bare statement written to a
// file.
#include "Bench.h"
#include "BenchCatalogue.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/Options.h"
#include "desktop/QtDesktop.h"
#include "platform/options/OptionsStore.h"
#include "platform/store/Collation.h"
#include "platform/store/SqlFunctions.h"
#include "reports/CsvCommands.h"
#include "reports/ReportCommands.h"
#include "reports/RichTextForms.h"
#include "songlist/DisplayedSet.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int Songs = 100'000;

/** Answers every box with its first button, and every file dialog with one name. */
class AnsweringDesktop final : public quaverly::QtDesktop
{
public:
    AnsweringDesktop(quaverly::OptionsStore &options, QString path)
        : quaverly::QtDesktop(options), m_path(std::move(path))
    {}
    quaverly::Answer MessageBox(const QString &, const QString &, quaverly::Icon, quaverly::Buttons buttons,
                                std::optional<quaverly::Answer>) override
    {
        return buttons == quaverly::Buttons::YesNo ? quaverly::Answer::Yes : quaverly::Answer::Ok;
    }
    std::optional<QString> ShowSaveDialog(const quaverly::FileQuestion &) override { return m_path; }

private:
    QString m_path;
};

/** Steps through the rows of a statement on SQLite's bare interface. */
class Rows final
{
public:
    explicit Rows(const QString &path)
    {
        sqlite3 *db = nullptr;
        sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX,
                        nullptr);
        m_db.reset(db);
        dao::registerCollation(db);
        dao::registerFunctions(db);
        sqlite3_exec(db, "PRAGMA cache_size = -16000", nullptr, nullptr, nullptr);
    }

    template <typename Row> void each(const std::string &sql, const Row &row)
    {
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v2(m_db.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_db.get()));
        while (sqlite3_step(statement) == SQLITE_ROW)
            row(statement);
        sqlite3_finalize(statement);
    }

    static const char *text(sqlite3_stmt *row, int column)
    {
        const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(row, column));
        return bytes != nullptr ? bytes : "";
    }

private:
    struct Close
    {
        void operator()(sqlite3 *db) const { sqlite3_close(db); }
    };
    std::unique_ptr<sqlite3, Close> m_db;
};

/** A displayed set without a main screen, and the commands over it. */
struct Program
{
    Program(const QString &path, const QString &output)
        : store(folder.filePath(u"options.ini"_s)), desktop(store, output),
          engine(quaverly::catalogueSchema()), settings(catalogue), set(catalogue, settings, desktop),
          forms(desktop, options, state), reports(desktop, set, catalogue, options, store, forms),
          csv(desktop, set.Data1(), catalogue)
    {
        options.RptLinesPerPage = u"54"_s;
        catalogue.CatalogueDb = engine.OpenDatabase(path);
        set.Data1().setRecordSource(u"Select * from  tblContacts Order By SongName, Artist"_s);
        set.Data1().Refresh();
    }
    ~Program() { set.Data1().Close(); }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    QTemporaryDir folder;
    quaverly::OptionsStore store;
    AnsweringDesktop desktop;
    dao::DBEngine engine;
    quaverly::Catalogue catalogue;
    quaverly::Options options;
    quaverly::SettingsRows settings;
    quaverly::DisplayedSet set;
    quaverly::ReportState state;
    quaverly::RichTextForms forms;
    quaverly::ReportCommands reports;
    quaverly::CsvCommands csv;
};

/** What every report reads. */
std::string statement(const char *order)
{
    return std::string("SELECT Artist, SongName, PathName, FileName, Duration FROM tblContacts ") + order;
}

void reports(bench::Suite &suite, Program &program, Rows &bare)
{
    const auto shown = [&program](void (quaverly::ReportCommands::*command)()) {
        (program.reports.*command)();
        QCoreApplication::sendPostedEvents();
        program.forms.form()->grab();
    };
    suite.compare(
        u"artist report 100k, shown"_s, 10, [&] { shown(&quaverly::ReportCommands::mnuArtistRpt_Click); },
        [&] {
            std::string text, artist;
            bare.each(statement("ORDER BY Artist, SongName, RecordID"), [&](sqlite3_stmt *row) {
                if (artist != Rows::text(row, 0)) {
                    artist = Rows::text(row, 0);
                    text += "\r\n\f" + artist + "\r\n";
                }
                text.append("    ").append(Rows::text(row, 1)).append("      ");
                text.append(Rows::text(row, 4)).append("\r\n");
            });
        },
        bench::Clock::Processor);
    suite.compare(
        u"song report 100k, shown"_s, 10, [&] { shown(&quaverly::ReportCommands::mnuSongRpt_Click); },
        [&] {
            std::string text;
            bare.each(statement("ORDER BY SongName, Artist, RecordID"), [&](sqlite3_stmt *row) {
                text.append(" ").append(Rows::text(row, 1)).append(" [by] ");
                text.append(Rows::text(row, 0)).append("\r\n");
            });
        },
        bench::Clock::Processor);
    suite.compare(
        u"path report 100k, shown"_s, 10, [&] { shown(&quaverly::ReportCommands::mnuPathRpt_Click); },
        [&] {
            std::string text;
            bare.each(statement("ORDER BY PathName, FileName, RecordID"), [&](sqlite3_stmt *row) {
                text.append(" ").append(Rows::text(row, 2)).append(Rows::text(row, 3)).append("\r\n");
            });
        },
        bench::Clock::Processor);
}

void csv(bench::Suite &suite, Program &program, Rows &bare, const QString &path)
{
    constexpr auto Statement =
        "SELECT SongName, Artist, Composer, AlbumName, Year, Genre, Duration, Rating, PathName, FileName, "
        "DateUpdated, PurchaseDate, Date2_Desc, Date2, MiscField1_Desc, MiscField1, MiscField2_Desc, "
        "MiscField2, "
        "MiscField3_Desc, MiscField3, Code, Notes FROM tblContacts ORDER BY SongName, Artist, RecordID";
    suite.compare(
        u"CSV 100k"_s, 2, [&] { program.csv.ExportWithNotes_Click(); },
        [&] {
            std::FILE *file = std::fopen(QFile::encodeName(path + u".bare"_s).constData(), "w");
            bare.each(Statement, [&](sqlite3_stmt *row) {
                for (int column = 0; column < sqlite3_column_count(row); ++column) {
                    std::fputc('"', file);
                    std::fputs(Rows::text(row, column), file);
                    std::fputs("\",", file);
                }
                std::fputs("\r\n", file);
            });
            std::fclose(file);
        },
        bench::Clock::Processor);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    bench::Suite suite(QApplication::arguments().mid(1));
    const QTemporaryDir output;
    const QString path = output.filePath(u"SongOut.csv"_s);
    // A copy: the store keeps its own notes in the file.
    const QString catalogue = output.filePath(u"songs.mdb"_s);
    if (!QFile::copy(bench::catalogueOf(Songs), catalogue))
        qFatal("no room for a copy of the catalogue");
    Program program(catalogue, path);
    Rows bare(catalogue);
    reports(suite, program, bare);
    csv(suite, program, bare, path);
    return suite.exitCode();
}
