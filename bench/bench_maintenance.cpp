// SPDX-License-Identifier: GPL-3.0-or-later
// The commands over many records, beside one bare statement with the same indexes on a copy of the same file.
#include "BareSqlite.h"
#include "Bench.h"
#include "BenchCatalogue.h"
#include "YesDesktop.h"

#include "catalogue/CatalogueSchema.h"
#include "catalogue/DuplicateQueries.h"
#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "categories/CategoryBulk.h"
#include "desktop/frmPreview.h"
#include "maintenance/MaintenanceCommands.h"
#include "maintenance/SearchAndReplace.h"
#include "maintenance/TextPreview.h"
#include "platform/options/OptionsStore.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

/** Tells what failed, and lets events run as the real one does. */
class WillingDesktop final : public bench::YesDesktop
{
public:
    Answer MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                      std::optional<Answer> defaultAnswer) override
    {
        if (icon == Icon::Stop)
            std::fprintf(stderr, "%s\n", qPrintable(text));
        return YesDesktop::MessageBox(text, title, icon, buttons, defaultAnswer);
    }
    void letEventsRun() override { QCoreApplication::processEvents(); }
};

/** A main screen that shows nothing. */
class NoScreen final : public MainScreen
{
public:
    void show(const MainLook & /*look*/) override {}
    void set_txtLocate(const QString & /*text*/) override {}
    void set_txtName(const QString & /*text*/) override {}
    [[nodiscard]] QString cmbSort() const override { return u"Song Name"_s; }
    void set_cmbSort(const QString & /*label*/) override {}
    void cmbSort_Click() override {}
    void cmdSortArtist_Click() override {}
    void cmdSortSong_Click() override {}
    void ShowAllMenu_Click() override {}
    [[nodiscard]] QString firstColumnField() const override { return {}; }
    [[nodiscard]] int gridRow() const override { return 0; }
    void scrollGrid(int /*columns*/, int /*rows*/) override {}
    void clearGridMarkArmed() override {}
    void focusGrid() override {}
    void setScreenEnabled(bool /*enabled*/) override {}
    [[nodiscard]] int openScreens() const override { return 1; }
    void unloadPics3() override {}
    void unloadPlayForm() override {}
};

void removeCatalogue(const QString &path)
{
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(path + ending);
}

/** The program over a fresh copy of the catalogue, which goes with it. */
class Copy final
{
public:
    explicit Copy(const QString &original) : m_path(bench::dataFolder() + u"maintenance.mdb"_s)
    {
        removeCatalogue(m_path);
        QFile::copy(original, m_path);
        m_catalogue.DatabaseFile = m_path;
        m_catalogue.CatalogueDb = m_engine.OpenDatabase(m_path);
        m_catalogue.ContactsTable = m_catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s);
        m_set.setScreen(&m_screen);
    }
    ~Copy()
    {
        m_set.Data1().Close();
        m_catalogue.ContactsTable.reset();
        m_catalogue.CatalogueDb.reset();
        removeCatalogue(m_path);
    }
    Copy(const Copy &) = delete;
    Copy &operator=(const Copy &) = delete;

    DisplayedSet &set() { return m_set; }
    dao::Database &database() { return *m_catalogue.CatalogueDb; }
    [[nodiscard]] const MaintenanceParts &parts() const { return m_parts; }
    MaintenanceCommands &commands() { return m_commands; }
    [[nodiscard]] CategoryParts categoryParts()
    {
        return {.services = m_services,
                .settings = m_settings,
                .set = m_set,
                .mainScreen = m_screen,
                .beforeBulk = [](const QString & /*command*/) { return true; }};
    }

private:
    QString m_path;
    dao::DBEngine m_engine{catalogueSchema()};
    Catalogue m_catalogue;
    SettingsRows m_settings{m_catalogue};
    WillingDesktop m_desktop;
    NoScreen m_screen;
    Options m_options;
    OptionsStore m_optionsStore{m_path + u".ini"_s};
    Services m_services{m_desktop, m_catalogue, m_options, m_optionsStore};
    DisplayedSet m_set{m_catalogue, m_settings, m_desktop};
    bool m_busy = false;
    MaintenanceParts m_parts{.services = m_services,
                             .set = m_set,
                             .mainScreen = m_screen,
                             .busy = m_busy,
                             .beforeBulk = [](const QString & /*command*/) { return true; }};
    MaintenanceCommands m_commands{m_parts, {}};
};

/** One command and the statement that does the same; each run starts from a fresh copy. */
struct Measure
{
    QString name;
    double goal;
    std::function<void(Copy &)> prepare;
    std::function<void(Copy &)> ours;
    QByteArray baseline;
};

void compare(bench::Suite &suite, const QString &original, int runs, const Measure &measure)
{
    if (!suite.wants(measure.name))
        return;
    QList<double> ours;
    QList<double> baseline;
    for (int i = 0; i < runs; ++i) {
        {
            Copy copy(original);
            measure.prepare(copy);
            ours.append(bench::costOf([&] { measure.ours(copy); }).processor);
        }
        Copy copy(original);
        measure.prepare(copy);
        bench::BareSqlite bare(copy.database().Name(), bench::Collate::AsTheStore, bench::Access::Write);
        bare.execute("PRAGMA synchronous = FULL");
        baseline.append(bench::costOf([&] { bare.execute(measure.baseline.constData()); }).processor);
    }
    suite.report(measure.name, measure.goal, bench::median(ours), bench::median(baseline), "ms");
}

void replace(Copy &copy, const QString &field, const QString &original, const QString &replacement)
{
    ReplaceRequest request{original, replacement, field};
    SearchAndReplace(copy.parts()).run(request);
}

/** All songs into the one category of the copy, or out of it. */
void changeCategory(Copy &copy, void (CategoryBulk::*command)(const Category *))
{
    const CategoryParts parts = copy.categoryParts();
    CategoryStore store(parts.services.catalogue);
    const Category category = store.categories().first();
    CategoryBulk bulk(parts, store);
    (bulk.*command)(&category);
}

void showAllAndCategory(Copy &copy)
{
    copy.set().RefreshDisplayedSet();
    copy.database().Execute(
        u"Insert Into tblCategoryDesc (CategoryNumber, CategoryDesc) Values (1, 'Jazz')"_s);
}

void run(bench::Suite &suite, int songs, int runs)
{
    const QString size = songs >= 1'000'000 ? u" 1M"_s : u" 100k"_s;
    const QString original = bench::catalogueOf(songs);
    const auto showAll = [](Copy &copy) { copy.set().RefreshDisplayedSet(); };
    const auto showJazz = [](Copy &copy) {
        copy.set().RefreshDisplayedSet();
        copy.set().filterApplied(u"Genre = \"Jazz\""_s);
    };
    const auto showInvalid = [](Copy &copy) {
        copy.database().Execute(
            u"Insert Into tblOrphanFileNames (RecordIdOrphan) Select RecordID From tblContacts Where Genre = 'Jazz'"_s);
        copy.set().invalidFileView();
    };
    const auto deleteDisplayed = [](Copy &copy) { copy.commands().mnuDeleteDisplayed_Click(); };
    const Measure measures[] = {
        {u"replace in all folders"_s + size, 2, showAll,
         [](Copy &copy) { replace(copy, u" tblContacts.PathName "_s, u"/home/anna"_s, u"/srv"_s); },
         "UPDATE tblContacts SET PathName = dao_replace(PathName, '/home/anna', '/srv') "
         "WHERE dao_like('*/home/anna*', PathName)"},
        {u"replace by a longer text"_s + size, 2, showAll,
         [](Copy &copy) { replace(copy, u" tblContacts.AlbumName "_s, u"e"_s, u"_e_"_s); },
         "UPDATE tblContacts SET AlbumName = dao_replace(AlbumName, 'e', '_e_') "
         "WHERE dao_like('*e*', AlbumName)"},
        {u"delete all displayed"_s + size, 2, showAll, deleteDisplayed, "DELETE FROM tblContacts"},
        {u"delete displayed, filter"_s + size, 2, showJazz, deleteDisplayed,
         "DELETE FROM tblContacts WHERE Genre = 'Jazz'"},
        {u"delete displayed, by key"_s + size, 2, showInvalid, deleteDisplayed,
         "DELETE FROM tblContacts WHERE RecordID IN (SELECT RecordIdOrphan FROM tblOrphanFileNames)"},
        {u"delete duplicates"_s + size, 2, [](Copy &copy) { ensureDuplicateQueries(copy.database()); },
         [](Copy &copy) { copy.database().Execute(u"qdelDuplicates"_s); },
         "DELETE FROM tblContacts WHERE RecordID IN (SELECT c.RecordID FROM tblContacts c JOIN (SELECT "
         "Artist a, SongName s, FileSize f, min(RecordID) k FROM tblContacts GROUP BY Artist, SongName, "
         "FileSize HAVING count(SongName) > 1) d ON c.FileSize = d.f AND c.SongName = d.s AND c.Artist = d.a "
         "WHERE c.RecordID <> d.k)"},
        {u"assign all displayed"_s + size, 2, showAllAndCategory,
         [](Copy &copy) { changeCategory(copy, &CategoryBulk::assignAll); },
         "INSERT INTO tblCategoryID (ID, CategoryNumber) SELECT RecordID, 1 FROM tblContacts"},
        {u"remove all displayed"_s + size, 2,
         [](Copy &copy) {
             showAllAndCategory(copy);
             changeCategory(copy, &CategoryBulk::assignAll);
         },
         [](Copy &copy) { changeCategory(copy, &CategoryBulk::removeAll); },
         "DELETE FROM tblCategoryID WHERE CategoryNumber = 1"},
    };
    for (const Measure &measure : measures)
        compare(suite, original, runs, measure);
}

/** All files are missing: each is looked for, and each song goes into the work table. */
void search(bench::Suite &suite, int songs)
{
    const QString name = songs >= 1'000'000 ? u"invalid names 1M"_s : u"invalid names 100k"_s;
    if (!suite.wants(name))
        return;
    Copy copy(bench::catalogueOf(songs));
    copy.set().RefreshDisplayedSet();
    const double ours = bench::costOf([&] { copy.commands().mnuFindInvalidFilenames_Click(); }).processor;
    const double stats = bench::costOf([&] {
                             for (int i = 0; i < songs; ++i)
                                 static_cast<void>(QFile::exists(u"/home/anna/Music/%1"_s.arg(i)));
                         }).processor;
    suite.report(name, 20, ours, stats, "ms");
}

/** From the wish to see what would change to the painted screen: a second for 100,000 songs. */
void previews(bench::Suite &suite, int songs)
{
    const double patience = songs / 100.0;
    const QString size = songs >= 1'000'000 ? u" 1M"_s : u" 100k"_s;
    if (!suite.wants(u"preview"_s + size))
        return;
    Copy copy(bench::catalogueOf(songs));
    copy.set().RefreshDisplayedSet();
    const SongPreview::Ground ground{copy.database(), copy.set().Data1()};
    const auto measure = [&](const QString &name, const std::function<std::unique_ptr<Preview>()> &make) {
        const double cost = bench::costOf([&] {
                                const auto preview = make();
                                frmPreview screen(copy.parts().services.desktop, *preview);
                                screen.show();
                                static_cast<void>(screen.grab());
                            }).processor;
        suite.report(u"preview"_s + size + u": "_s + name + u", beside a second for 100k"_s, 1, cost,
                     patience, "ms");
    };
    const auto replaced = [&](const QString &field, const QString &original, const QString &replacement) {
        const TextField place{u"tblContacts"_s, field, u"RecordID"_s};
        return std::make_unique<TextPreview>(ground, QString(),
                                             std::vector{partReplaced(place, original, replacement)});
    };
    measure(u"replace in all folders"_s, [&] { return replaced(u"PathName"_s, u"/home/anna"_s, u"/srv"_s); });
    measure(u"replace in all albums"_s, [&] { return replaced(u"AlbumName"_s, u"e"_s, u"_e_"_s); });
    measure(u"delete all displayed"_s, [&] { return std::make_unique<DeletionPreview>(ground); });
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    bench::Suite suite(QCoreApplication::arguments().mid(1));
    try {
        run(suite, 100'000, 5);
        search(suite, 100'000);
        run(suite, 1'000'000, 3);
        search(suite, 1'000'000);
        previews(suite, 100'000);
        previews(suite, 1'000'000);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return suite.exitCode();
}
