// SPDX-License-Identifier: GPL-3.0-or-later
#include "MaintenanceFixture.h"

#include "catalogue/RenameNotes.h"
#include "history/ChangeTexts.h"
#include "history/ChangeWalk.h"
#include "maintenance/frmRenameFiles.h"
#include "support/Death.h"
#include "support/Files.h"
#include "support/Limits.h"

#include <QDirIterator>
#include <QListWidget>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

TEST(TheRenamePattern, MakesNamesThatEveryFileSystemTakes)
{
    const QMap<QString, QString> song{{u"Artist"_s, u"AC/DC: \"Live\"?"_s},
                                      {u"SongName"_s, u" .Hells Bells. "_s},
                                      {u"AlbumName"_s, u".."_s},
                                      {u"TrackNum"_s, u"3.0"_s},
                                      {u"TrackText"_s, u"07/12"_s},
                                      {u"Composer"_s, QString(260, u'x')},
                                      {u"Genre"_s, {}}};
    const std::tuple<QString, QString, QString> cases[] = {
        {u"%Artist%/%TrackNum:2% %songname%"_s, u"AC_DC_ _Live__/03 .Hells Bells.mp3"_s, {}},
        {u"%SongName%"_s, u"_Hells Bells.mp3"_s, {}},
        {u"%TrackText:3%-%TrackNum%"_s, u"007-3.mp3"_s, {}},
        {u"100%% %SongName%"_s, u"100% .Hells Bells.mp3"_s, {}},
        {u"%AlbumName%/%SongName%"_s, {}, u"Nothing is left of a name"_s},
        {u"%Genre%/%SongName%"_s, {}, u"Genre is empty"_s},
        {u"%Composer%"_s, {}, u"The name is too long"_s},
    };
    for (const auto &[text, path, problem] : cases) {
        const RenamePattern pattern(text);
        EXPECT_EQ(pattern.complaint(), QString()) << text.toStdString();
        const auto made = pattern.nameOf([&](const QString &field) { return song.value(field); }, u".mp3"_s);
        EXPECT_EQ(made.problem, problem) << text.toStdString();
        if (problem.isEmpty()) {
            EXPECT_EQ(made.path, path);
        }
    }
    const std::pair<QString, QString> refused[] = {
        {{}, u"names no field"_s},
        {u"x"_s, u"names no field"_s},
        {u"%Artist"_s, u"no second one"_s},
        {u"%Nothing%"_s, u"\"Nothing\" is no field"_s},
        {u"%FileName%"_s, u"is no field"_s},
        {u"%TrackNum:0%"_s, u"from 1 to 9"_s},
        {u"%Artist%/"_s, u"ends in a folder"_s},
        {u"/%Artist%"_s, u"has no name"_s},
        {u"../%Artist%"_s, u"can't be the name of a folder"_s},
        {u"%Artist%: %SongName%"_s, u"may hold one of these"_s},
    };
    for (const auto &[text, complaint] : refused)
        EXPECT_TRUE(RenamePattern(text).complaint().contains(complaint)) << text.toStdString();
}

/** Three songs with files, the first of them twice in a play list. */
class Renaming : public Maintenance
{
protected:
    void SetUp() override
    {
        store.db().Execute(u"Delete * from tblContacts"_s);
        store.db().Execute(u"Delete * from tblPlayListDetail"_s);
        int number = 0;
        for (const QString &name : {u"Sun"_s, u"Moon"_s, u"Star"_s}) {
            writeFile(music(name + u".mp3"_s), name.toUtf8());
            keys += store.addSong(Song(name, u"Abba"_s)
                                      .with(u"AlbumName"_s, u"Sky"_s)
                                      .with(u"TrackText"_s, u"%1/3"_s.arg(++number))
                                      .file(music(), name + u".mp3"_s));
        }
        for (int i = 0; i < 2; ++i)
            store.addRow(u"tblPlayListDetail"_s, {{u"ListID"_s, 1}, {u"FileName"_s, music(u"Sun.mp3"_s)}});
        set.ShowAllMenu_Click();
        store.db().endChange();
    }
    QString music(const QString &name = {}) { return store.path(u"music/"_s + name); }
    /** All files below the music folder, each with what it holds. */
    QString files()
    {
        QStringList all;
        QDirIterator below(music(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (below.hasNext()) {
            const QString path = below.next();
            all += path.mid(music().size()) + u'=' + QString::fromUtf8(bytesOf(path));
        }
        all.sort();
        return all.join(u' ');
    }
    /** The same by the records. */
    QString records()
    {
        const QString folder = QString::number(music().size() + 1);
        QStringList all = store.column(u"Select Mid(PathName & FileName, "_s + folder +
                                       u") & '=' & SongName From tblContacts"_s);
        all.sort();
        return all.join(u' ');
    }
    QString tracks() { return store.column(u"Select FileName From tblPlayListDetail"_s).join(u' '); }
    void expectTogether(const QString &places)
    {
        EXPECT_EQ(files(), places);
        EXPECT_EQ(records(), places);
        const qsizetype sun = places.indexOf(u"=Sun"_s);
        const QString path =
            places.left(sun).section(u".mp3="_s, -1).section(u"Star "_s, -1).section(u"Moon "_s, -1);
        EXPECT_EQ(tracks(), music(path) + u' ' + music(path));
        EXPECT_EQ(store.valueOf(u"Select Count(*) From tblRenameNotes"_s), 0);
    }
    void rename(const QString &pattern)
    {
        show<frmRenameFiles>();
        retype(box(u"txtPattern"_s), pattern);
        press(u"cmdShowChanges"_s);
    }
    void willGoOn(const std::function<void(QWidget &)> &first = {})
    {
        desktop.willPreview([first](QWidget &preview) {
            if (first)
                first(preview);
            click(preview, u"cmdGoOn"_s);
        });
    }
    QStringList walk(WalkDirection direction)
    {
        store.db().endChange();
        const dao::History history(store.db());
        return ChangeWalk(store.catalogue())
            .go(direction == WalkDirection::Back ? *history.undoable() : *history.redoable(), direction);
    }

    QList<qint64> keys;
    const QString before = u"Moon.mp3=Moon Star.mp3=Star Sun.mp3=Sun"_s;
    const QString after = u"Abba/Sky/01 Sun.mp3=Sun Abba/Sky/02 Moon.mp3=Moon Abba/Sky/03 Star.mp3=Star"_s;
};

TEST_F(Renaming, ShowsThenRenamesThenTakesBackAsOneChange)
{
    desktop.willPreview([&](QWidget &preview) {
        EXPECT_EQ(rowsOf(preview), (QStringList{u"x Sun, by Abba |  | Sun.mp3 | Abba/Sky/01 Sun.mp3"_s,
                                                u"x Moon, by Abba |  | Moon.mp3 | Abba/Sky/02 Moon.mp3"_s,
                                                u"x Star, by Abba |  | Star.mp3 | Abba/Sky/03 Star.mp3"_s}));
        click(preview, u"cmdGiveUp"_s);
    });
    show<frmRenameFiles>();
    EXPECT_EQ(child<QLabel>(*form, u"lblExample"_s)->text(), music(u"Abba/Sky/01 Sun.mp3"_s));
    press(u"cmdShowChanges"_s);
    expectTogether(before);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(backups, 0);

    willGoOn();
    desktop.willSee(u"Number of files renamed: 3"_s);
    press(u"cmdShowChanges"_s);
    expectTogether(after);
    EXPECT_EQ(backups, 1);
    store.db().endChange();
    const auto changes = dao::History(store.db()).changes();
    EXPECT_TRUE(ChangeTexts(store.db()).sentence(changes.front()).startsWith(u"Rename Files: "_s));
    EXPECT_EQ(walk(WalkDirection::Back), QStringList());
    expectTogether(before);
    EXPECT_EQ(walk(WalkDirection::Again), QStringList());
    expectTogether(after);
}

TEST_F(Renaming, TakesTheMarkedSongsAndTheTickedRowsAlone)
{
    mark(keys[0]);
    mark(keys[1]);
    willGoOn([](QWidget &preview) {
        EXPECT_EQ(rowsOf(preview).size(), 2);
        tickRow(preview, 0);
    });
    desktop.willSee(u"Number of files renamed: 1"_s);
    rename(u"%Artist% - %SongName%"_s);
    expectTogether(u"Abba - Moon.mp3=Moon Star.mp3=Star Sun.mp3=Sun"_s);
    show<frmRenameFiles>();
    EXPECT_EQ(box(u"txtPattern"_s)->text(), u"%Artist% - %SongName%"_s) << "the last one is remembered";
    EXPECT_FALSE(box(u"txtFolder"_s)->isEnabled());
    box(u"txtPattern"_s)->clear();
    press(u"cmdInsert"_s);
    EXPECT_EQ(box(u"txtPattern"_s)->text(), u"%Artist%"_s);
    desktop.willSee(u"no second one"_s);
    retype(box(u"txtPattern"_s), u"%Artist"_s);
    press(u"cmdShowChanges"_s);
    store.options().FileRenameDisabled = true;
    desktop.willSee(u"switched off"_s);
    rename(u"%SongName%"_s);
    store.options().FileRenameDisabled = false;
}

TEST_F(Renaming, FindsWhatStandsInTheWayBeforeTheStart)
{
    store.db().Execute(u"Update tblContacts Set AlbumName = 'Night' Where SongName <> 'Sun'"_s);
    const auto add = [this](const QString &name, const QString &album) {
        store.addSong(Song(name).with(u"AlbumName"_s, album).file(music(), name + u".mp3"_s));
    };
    add(u"Gone"_s, u"x"_s);
    add(u"Long"_s, QString(255, u'ä'));
    add(u"Blank"_s, {});
    add(u"Locked"_s, u"y"_s);
    add(u"There"_s, u"z"_s);
    store.addSong(Song(u"Bare"_s).with(u"AlbumName"_s, u"b"_s));
    for (const QString &name : {u"Long"_s, u"Blank"_s, u"There"_s, u"z"_s})
        writeFile(music(name + u".mp3"_s));
    writeFile(music(u"locked/Locked.mp3"_s));
    store.db().Execute(u"Update tblContacts Set PathName = PathName & 'locked/' Where SongName = 'Locked'"_s);
    set.ShowAllMenu_Click();
    const LockedFolder locked(music(u"locked"_s), store.folder());
    desktop.willPreview([&](QWidget &preview) {
        EXPECT_EQ(rowsOf(preview).size(), 9);
        EXPECT_EQ(
            rowsOf(preview).mid(0, 7),
            (QStringList{
                u"- Star, by Abba | Another song has this file, or comes to it | Star.mp3 | Night.mp3"_s,
                u"- Gone | The file is not there | Gone.mp3 | x.mp3"_s,
                u"- Long | The name is too long | Long.mp3 | %1.mp3"_s.arg(QString(255, u'ä')),
                u"- Blank | Album Name is empty | Blank.mp3 | .mp3"_s,
                u"- Locked | The folder of the file can't be written to | locked/Locked.mp3 | locked/y.mp3"_s,
                u"- There | There is a file of this name | There.mp3 | z.mp3"_s,
                u"- Bare | The record names no file |  | "_s}));
        click(preview, u"cmdGiveUp"_s);
    });
    rename(u"%AlbumName%"_s);
}

TEST_F(Renaming, EndsBetweenTwoFilesWhenItIsStoppedOrTheDiskIsFull)
{
    // The wait window of the look, then that of the work, before its second file.
    willGoOn([this](QWidget &) {
        desktop.atEvents(desktop.eventsRun() + 3, [this] { desktop.closeWorkingForm(); });
    });
    desktop.willSee(u"Number of files renamed: 1.\n\nThe command was stopped."_s);
    rename(RenamePattern::usualText());
    expectTogether(u"Abba/Sky/01 Sun.mp3=Sun Moon.mp3=Moon Star.mp3=Star"_s);

    std::optional<FullDisk> full;
    willGoOn();
    duringBackup = [&] { full.emplace(1); };
    desktop.willSee(u"Number of files renamed: 0 of 2."_s).meanwhile([&] { full.reset(); });
    show<frmRenameFiles>();
    press(u"cmdShowChanges"_s);
    expectTogether(u"Abba/Sky/01 Sun.mp3=Sun Moon.mp3=Moon Star.mp3=Star"_s);
    EXPECT_EQ(walk(WalkDirection::Back), QStringList());
    expectTogether(before);
}

TEST_F(Renaming, KilledAtAnyStepLeavesFilesRecordsAndTracksTogether)
{
    store.db().Execute(u"Delete * from tblContacts Where SongName = 'Star'"_s);
    store.db().endChange();
    QFile::remove(music(u"Star.mp3"_s));
    const QString two = files();
    const QString catalogue = store.catalogue().DatabaseFile;
    set.Data1().Close();
    store.close();
    ASSERT_TRUE(QFile::copy(catalogue, catalogue + u".before"_s));
    int deaths = 0;
    int halfWay = 0;
    for (bool died = true; died; deaths += died) {
        SCOPED_TRACE(deaths);
        died = diesAt(
            deaths + 1,
            [&] {
                store.open();
                set.ShowAllMenu_Click();
            },
            [&] {
                willGoOn();
                desktop.willSee(u"Number of files renamed: 2"_s);
                if (!FileRenames(parts).run(RenamePattern(RenamePattern::usualText()), music()))
                    std::_Exit(1);
            });
        store.open();
        EXPECT_EQ(RenameNotes(store.catalogue()).settle(), QStringList());
        store.db().endChange();
        const QString left = files();
        expectTogether(left);
        halfWay += left.contains(u"01 Sun"_s) != left.contains(u"02 Moon"_s);
        // Whatever the death left, the history leads back to where the files were.
        while (files() != two) {
            if (const QStringList inTheWay = walk(WalkDirection::Back); !inTheWay.isEmpty()) {
                ADD_FAILURE() << inTheWay.join(u'\n').toStdString();
                break;
            }
        }
        expectTogether(two);
        store.close();
        for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(catalogue + ending);
        ASSERT_TRUE(QFile::copy(catalogue + u".before"_s, catalogue));
        QDir(music(u"Abba"_s)).removeRecursively();
    }
    EXPECT_GT(deaths, 12);
    EXPECT_GT(halfWay, 2);
    store.open();
}

} // namespace
