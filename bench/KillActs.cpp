// SPDX-License-Identifier: GPL-3.0-or-later
#include "KillActs.h"

#include "desktop/FileHelpers.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace bench {

namespace {

constexpr QChar Between = u'\x1e';

/** The ID that one song has already: a save with it is refused behind the rename. */
constexpr char16_t TakenID[] = u"taken";

void require(bool held, const char *what)
{
    if (held)
        return;
    std::fprintf(stderr, "An act failed by itself: %s\n", what);
    std::_Exit(2);
}

} // namespace

QString State::text() const
{
    QString all;
    for (const auto &[id, song] : songs)
        all += u"%1 %2 %3\n"_s.arg(id).arg(song.code, song.path);
    for (const auto &[id, tracks] : lists) {
        all += u"list %1:"_s.arg(id);
        for (const qint64 song : tracks)
            all += u' ' + QString::number(song);
        all += u'\n';
    }
    return all;
}

Program::Program(const QString &folder)
    : store(folder + u"options.ini"_s), instance(folder),
      startUp(catalogue, options, engine, desktop, store, instance, {},
              {[this] {
                   set.Data1().setRecordSource(u"Select * from tblContacts"_s);
                   set.Data1().Refresh();
               },
               {}}),
      commands(desktop, catalogue, engine, store, hooks())
{
    catalogue.DatabaseFile = folder + u"QVdata.mdb"_s;
    catalogue.DatabaseFolder = folder;
}

Program::~Program()
{
    if (!catalogue.CatalogueDb)
        return;
    leave();
    ShutDown(catalogue).closeCatalogue();
}

void Program::leave()
{
    set.Data1().Close();
    ShutDown(catalogue).leaveMainScreen();
}

CatalogueHooks Program::hooks()
{
    return {.showAll = [] {},
            .openScreens = [] { return 1; },
            .unloadPlayForm = [] {},
            .unloadMainScreen = [this](bool) { leave(); },
            .forgetPlayLists = [] {},
            .startUp = [this] { return start(); },
            .endProcess = [] { require(false, "the catalogue could not be opened again"); }};
}

bool Program::start()
{
    return startUp.run() == StartResult::Running;
}

State Program::state()
{
    State state;
    auto rows = catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext())
        state.songs[rows->value(u"RecordID"_s).toLongLong()] = {
            rows->text(u"PathName"_s) + rows->text(u"FileName"_s), rows->text(u"Code"_s)};
    for (const PlayListName &list : lists.lists())
        state.lists[list.ListID] = {};
    rows = catalogue.CatalogueDb->OpenRecordset(
        u"Select * from tblPlayListDetail Order by ListID, ListTrackID"_s, dao::RecordsetType::Snapshot);
    for (; !rows->atEOF(); rows->MoveNext())
        state.lists[rows->value(u"ListID"_s).toLongLong()].append(
            rows->value(u"ContactRecordID"_s).toLongLong());
    return state;
}

Acts::Acts(Program &program, QStringList folders, QString journal, quint32 seed)
    : m_program(program), m_folders(std::move(folders)), m_journal(std::move(journal)), m_random(seed),
      m_state(program.state()), m_newest(newestChange())
{}

QString Acts::nameOf(int kind)
{
    static const QStringList names{u"save"_s, u"reorder"_s, u"restore"_s,   u"compact"_s,
                                   u"edit"_s, u"list"_s,    u"take back"_s, u"make again"_s};
    return names.at(kind);
}

void Acts::act(int kind)
{
    constexpr std::array All{&Acts::saveRenamed, &Acts::reorder,    &Acts::restore,  &Acts::compact,
                             &Acts::edit,        &Acts::changeList, &Acts::takeBack, &Acts::makeAgain};
    static_assert(All.size() == Kinds);
    const State before = m_state;
    (this->*All.at(static_cast<size_t>(kind)))();
    noteChange(before);
}

qint64 Acts::newestChange()
{
    const auto newest = dao::History(*m_program.catalogue.CatalogueDb).undoable();
    return newest ? newest->id : 0;
}

void Acts::noteChange(const State &before)
{
    m_program.catalogue.CatalogueDb->endChange();
    const qint64 newest = newestChange();
    if (newest == m_newest)
        return;
    m_newest = newest;
    m_past.append(before);
    m_future.clear();
}

void Acts::takeBack()
{
    while (m_past.isEmpty())
        act(upTo(1) == 0 ? 0 : 4);
    m_future.append(m_state);
    walk(u"take back"_s, m_past.takeLast(), WalkDirection::Back);
}

void Acts::makeAgain()
{
    while (m_future.isEmpty()) {
        takeBack();
        if (upTo(2) == 0 && !m_past.isEmpty())
            takeBack();
    }
    m_past.append(m_state);
    walk(u"make again"_s, m_future.takeLast(), WalkDirection::Again);
}

void Acts::walk(const QString &act, const State &after, WalkDirection direction)
{
    // Killed behind the moves, the records get their files' names and nothing else.
    State moved = m_state;
    for (auto &[id, song] : moved.songs)
        song.path = after.songs.at(id).path;
    expect(act, {m_state, moved, after});
    const dao::History history(*m_program.catalogue.CatalogueDb);
    const auto change = direction == WalkDirection::Back ? history.undoable() : history.redoable();
    require(change && ChangeWalk(m_program.catalogue).go(*change, direction).isEmpty(), "the walk");
    m_newest = newestChange();
}

void Acts::goOn()
{
    for (;;)
        act(upTo(Kinds - 1));
}

// In one step: a death while it is written leaves the old one, and nothing is done yet.
void Acts::expect(const QString &act, const QList<State> &allowed)
{
    QStringList texts{act};
    for (const State &state : allowed)
        texts += state.text();
    QFile file(m_journal + u".new"_s);
    require(file.open(QIODevice::WriteOnly), "the journal");
    file.write(texts.join(Between).toUtf8());
    file.close();
    require(std::rename(qPrintable(file.fileName()), qPrintable(m_journal)) == 0, "the journal");
    m_state = allowed.last();
}

Journal readJournal(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList texts = QString::fromUtf8(file.readAll()).split(Between);
    return {texts.takeFirst(), texts};
}

qint64 Acts::anySong()
{
    // The first one keeps the ID that others are refused for.
    return std::next(m_state.songs.begin(), 1 + upTo(static_cast<int>(m_state.songs.size()) - 2))->first;
}

qint64 Acts::anyList()
{
    return std::next(m_state.lists.begin(), upTo(static_cast<int>(m_state.lists.size()) - 1))->first;
}

bool Acts::save(SongSave &save, const QString &path, const QString &code, const QString &id)
{
    SongTexts texts = textsOf(m_program.set.Data1().Recordset());
    texts[u"PathName"_s] = folderOf(path);
    texts[u"FileName"_s] = fileNameOf(path);
    texts[u"Code"_s] = code;
    texts[u"ID"_s] = id;
    m_program.editor.RecordDirty = true;
    return save.save(texts).outcome == SaveOutcome::Saved;
}

// At once, or refused behind the rename and then saved under yet another name, or given up.
void Acts::saveRenamed()
{
    const qint64 song = anySong();
    const auto freshPath = [&] {
        return m_folders.at(upTo(static_cast<int>(m_folders.size()) - 1)) +
               u"song %1 \"%2\".mp3"_s.arg(song).arg(freshCode()).remove(u'"');
    };
    const State before = m_state;
    State renamed = before;
    renamed.songs[song].path = freshPath();
    State saved = before;
    saved.songs[song] = {freshPath(), freshCode()};
    // Killed behind the rename, the record gets the file's name and nothing else of what was typed.
    State moved = before;
    moved.songs[song].path = saved.songs[song].path;
    const int road = upTo(3);
    DataControl &data = m_program.set.Data1();
    data.Refresh();
    require(data.findRecord(song), "the song is shown");
    m_program.editor.EditMode = true;
    SongSave writer({.services = {m_program.desktop, m_program.catalogue, m_program.options, m_program.store},
                     .set = m_program.set,
                     .state = m_program.editor,
                     .now = &QDateTime::currentDateTime});
    if (road < 2) {
        expect(u"save"_s, {before, moved, saved});
    } else {
        expect(u"save"_s, road == 2 ? QList{before, renamed, moved, saved} : QList{renamed, before});
        require(!save(writer, renamed.songs[song].path, {}, QString::fromUtf16(TakenID)), "the refusal");
    }
    if (road < 3)
        require(save(writer, saved.songs[song].path, saved.songs[song].code, {}), "the save");
    else
        require(writer.giveUp() == QString(), "the giving up");
}

void Acts::editOne(qint64 song, const QString &code)
{
    const auto row = m_program.catalogue.CatalogueDb->OpenRecordset(
        u"Select * from tblContacts Where RecordID=%1"_s.arg(song), dao::RecordsetType::Dynaset);
    row->Edit();
    row->setValue(u"Code"_s, code);
    row->Update();
}

void Acts::edit()
{
    State after = m_state;
    const qint64 song = anySong();
    after.songs[song].code = freshCode();
    expect(u"edit"_s, {m_state, after});
    editOne(song, after.songs[song].code);
}

void Acts::reorder()
{
    const qint64 list = anyList();
    State after = m_state;
    QList<qint64> &tracks = after.lists[list];
    if (tracks.size() < 2)
        return;
    const int last = static_cast<int>(tracks.size()) - 1;
    const int from = upTo(last);
    const int to = upTo(last);
    QList<qint64> keys = keysOf(list);
    keys.move(from, to);
    tracks.move(from, to);
    expect(u"reorder"_s, {m_state, after});
    require(!m_program.lists.reorder(list, keys), "the order");
}

QList<qint64> Acts::keysOf(qint64 list)
{
    QList<qint64> keys;
    for (const ShownTrack &track : m_program.lists.shownTracks(list, MostTracks))
        keys += track.key;
    return keys;
}

Track Acts::trackOf(qint64 song)
{
    const auto row = m_program.catalogue.CatalogueDb->OpenRecordset(
        u"Select * from tblContacts Where RecordID=%1"_s.arg(song), dao::RecordsetType::Dynaset);
    return trackOfSong(*row);
}

void Acts::changeList()
{
    const qint64 list = anyList();
    State after = m_state;
    QList<qint64> &tracks = after.lists[list];
    constexpr int Most = 40;
    const bool removes = tracks.size() > Most || (!tracks.isEmpty() && upTo(1) == 0);
    const int place = removes ? upTo(static_cast<int>(tracks.size()) - 1) : 0;
    QList<Track> added;
    if (removes) {
        tracks.removeAt(place);
    } else {
        for (int count = 1 + upTo(4); count > 0; --count) {
            tracks += anySong();
            added += trackOf(tracks.last());
        }
    }
    expect(u"list"_s, {m_state, after});
    if (!removes) {
        m_program.lists.addTracks(list, added);
        return;
    }
    m_program.lists.deleteTrack(list, keysOf(list).at(place));
}

// To a copy that was made just now: an older one would not know the names that files got since.
void Acts::restore()
{
    Backups &backups = m_program.commands.backups();
    const State before = m_state;
    State changed = before;
    const qint64 song = anySong();
    changed.songs[song].code = freshCode();
    // More copies than are kept, in less than a second, would not be in order.
    QDir(m_program.catalogue.DatabaseFolder + u"Backups"_s).removeRecursively();
    expect(u"restore"_s, {before, changed, before});
    require(backups.beforeBulkCommand(u"Replace"_s), "the copy");
    const std::vector<Backup> copies = backups.list();
    editOne(song, changed.songs[song].code);
    m_program.commands.restoreBackup(copies.front());
    // It has the history of its own time.
    m_past.clear();
    m_future.clear();
    m_newest = newestChange();
}

void Acts::compact()
{
    expect(u"compact"_s, {m_state});
    m_program.commands.mnuCompactDatabase_Click();
}

} // namespace bench
