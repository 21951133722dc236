// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Commands.h"

#include "desktop/Guard.h"
#include "history/frmHistory.h"
#include "main/Session.h"
#include "maintenance/frmChangeFileNamePath.h"
#include "maintenance/frmChangeFilePath.h"
#include "maintenance/frmRenameFiles.h"
#include "maintenance/frmReplace.h"
#include "notes/MemoForm.h"
#include "notes/NotesForm.h"
#include "platform/options/Folders.h"
#include "update/frmCheck.h"
#include "update/frmUpdate.h"

#include <QMenu>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString pictureSitting(EditorState &state)
{
    if (state.PictureSitting.isEmpty())
        state.PictureSitting = QUuid::createUuid().toString();
    return state.PictureSitting;
}

PictureEditor pictureEditor(NameEdit &editor)
{
    return {.text = [&editor](const QString &field) { return editor.text(field); },
            .setText = [&editor](const QString &field, const QString &text) { editor.setText(field, text); },
            .setRecordDirty = [&editor] { editor.setRecordDirty(true); },
            .setPictureChanged = [&editor] { editor.state().PictureChanged = true; },
            .sitting = [&editor] { return pictureSitting(editor.state()); },
            .recordId = editor.recordID()};
}

LookupSong lookupSong(const NameEdit &editor)
{
    return {editor.text(u"Artist"_s), editor.text(u"SongName"_s), editor.text(u"AlbumName"_s)};
}

} // namespace

Commands::Commands(Session &session, const CommandHooks &hooks)
    : m_session(session), m_hooks(hooks), m_webLookup(session.desktop(), session.optionsStore()),
      categories({.services = session.services(),
                  .settings = session.settings(),
                  .set = session.displayedSet(),
                  .mainScreen = hooks.mainScreen,
                  .beforeBulk = hooks.beforeBulk},
                 hooks.owner),
      viewer(session.desktop(), session.options(), m_reportState),
      reports(session.desktop(), session.displayedSet(), session.catalogue(), session.options(),
              session.optionsStore(), viewer),
      playListReports(session.desktop(), session.catalogue(), viewer),
      csv(session.desktop(), session.displayedSet().Data1(), session.catalogue()),
      pictures({.services = session.services(),
                .set = session.displayedSet(),
                .nameList = &hooks.owner,
                .focusCmdPictures = hooks.focusCmdPictures}),
      playLists(playListParts(), [this] { return &m_hooks.owner; }), edit(editParts()),
      maintenance(maintenanceParts(), {.frmReplace = [this] { showMaintenance<frmReplace>(); },
                                       .frmChangeFilePath = [this] { showMaintenance<frmChangeFilePath>(); },
                                       .frmRenameFiles = [this] { showMaintenance<frmRenameFiles>(); }}),
      duplicates(maintenanceParts()), fileCopy(maintenanceParts(), session.copyFolder()),
      history({.services = session.services(),
               .set = session.displayedSet(),
               .tell = hooks.tell,
               .showHistory = [this] { showHistory(); },
               .restoreBefore = hooks.restoreBefore}),
      update(
          updateParts(), [this] { showUpdate(); }, [this] { showCheck(); }),
      tags({.services = session.services(), .set = session.displayedSet(), .nameList = &hooks.owner})
{}

void Commands::showHistory()
{
    (new frmHistory(m_session.desktop(), *m_session.catalogue().CatalogueDb, history, &m_hooks.owner))
        ->showModally();
}

UpdateParts Commands::updateParts()
{
    return {.services = m_session.services(),
            .set = m_session.displayedSet(),
            .mainScreen = m_hooks.mainScreen,
            .player = m_session.player(),
            .intake = m_session.intake(),
            .busy = m_busy,
            .now = [] {
                QDateTime now = QDateTime::currentDateTime();
                now.setTimeSpec(Qt::UTC);
                return now;
            }};
}

void Commands::showUpdate()
{
    (new frmUpdate(updateParts(), &m_hooks.owner))->showModally();
}

void Commands::showCheck()
{
    (new frmCheck(
         updateParts(), [this] { update.mnuUpdateFromDisk_Click(); }, &m_hooks.owner))
        ->showModally();
}

void Commands::unload()
{
    pictures.unloadPics3();
    viewer.unload();
}

MaintenanceParts Commands::maintenanceParts()
{
    return {.services = m_session.services(),
            .set = m_session.displayedSet(),
            .mainScreen = m_hooks.mainScreen,
            .busy = m_busy,
            .beforeBulk = m_hooks.beforeBulk};
}

template <typename Screen> void Commands::showMaintenance()
{
    (new Screen(maintenanceParts(), &m_hooks.owner))->showModally();
}

PlayListParts Commands::playListParts()
{
    return {.services = m_session.services(),
            .player = m_hooks.player,
            .state = m_session.player(),
            .displayed = m_session.displayedSet(),
            .LastMusicFolder = m_session.intake().LastMusicFolder,
            .LastPlayListFolder = m_session.lastPlayListFolder(),
            .makeMediaPlayer = [this] { return m_session.media().makeMediaPlayer(); },
            .populateReport = folders::state() + u"populate-report.txt"_s,
            .RunPlayListReport =
                [this](PlayListReportKind kind, const PlayListName &list) {
                    playListReports.RunPlayListReport(kind, list.ListName);
                },
            .showChangeFileNamePath =
                [this](QWidget *owner) {
                    (new frmChangeFileNamePath(maintenanceParts(), owner))->showModally();
                }};
}

EditParts Commands::editParts()
{
    return {.services = m_session.services(),
            .set = m_session.displayedSet(),
            .mainScreen = m_hooks.mainScreen,
            .player = m_session.player(),
            .state = m_session.editor(),
            .showNameEdit = [this](const std::function<void()> &closed) { showNameEdit(closed); },
            .showNameList = [this] { m_hooks.owner.show(); }};
}

NameEditHooks Commands::nameEditHooks()
{
    NameEditHooks hooks;
    hooks.playFromEditor = m_hooks.playFromEditor;
    hooks.hideNameList = [this] { m_hooks.owner.hide(); };
    hooks.ShowCategoryAssign = [this](NameEdit &editor) { categories.ShowCategoryAssign(&editor); };
    hooks.assignCategoryOnAdd = [this] { categories.ShowCategoryAssign(); };
    hooks.showNotesForm = [this](NameEdit &editor, const QString &notes,
                                 const std::function<void(const QString &)> &closed) {
        showNotesForm(editor, notes, closed);
    };
    hooks.showPicture = [this](NameEdit &editor, int slot) {
        pictures.cmdPicture_Click(pictureEditor(editor), slot, &editor);
    };
    hooks.showPictureMenu = [this](NameEdit &editor, int slot, QPoint place) {
        pictures.showPictureMenu(pictureEditor(editor), slot, place, &editor);
    };
    hooks.editTags = [this](NameEdit &editor, const QString &path) {
        TaggedSong song{editor.state().EditMode ? editor.recordID() : 0, path, {}, {}};
        for (const QString &field : tagRecordFields())
            song.record[field] = editor.text(field);
        tags.editTags(
            song,
            [&editor](const TaggedSong &, const QMap<QString, QString> &texts) {
                for (auto text = texts.cbegin(); text != texts.cend(); ++text)
                    editor.setText(text.key(), *text);
            },
            &editor);
    };
    hooks.cmdWebLookup = [this](NameEdit &editor) { m_webLookup.cmdWebLookup_Click(lookupSong(editor)); };
    hooks.showWebLookupMenu = [this](NameEdit &editor, QPoint place) { showWebLookupMenu(editor, place); };
    return hooks;
}

void Commands::showWebLookupMenu(NameEdit &editor, QPoint place)
{
    auto *menu = new QMenu(&editor);
    menu->setObjectName(u"mnuWebLookup"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString &text, auto handler) {
        QObject::connect(menu->addAction(text), &QAction::triggered, &editor,
                         [this, &editor, handler] { (m_webLookup.*handler)(lookupSong(editor)); });
    };
    add(u"Find song Lyrics"_s, &WebLookup::mnuWebLookupLyrics_Click);
    add(u"Find album art images"_s, &WebLookup::mnuWebLookupImages_Click);
    add(u"Find cover versions of this song"_s, &WebLookup::mnuWebLookupCoverVersions_Click);
    menu->popup(place);
}

void Commands::showNameEdit(const std::function<void()> &closed)
{
    auto editor =
        std::make_unique<NameEdit>(NameEditParts{.services = m_session.services(),
                                                 .set = m_session.displayedSet(),
                                                 .mainScreen = m_hooks.mainScreen,
                                                 .settings = m_session.settings(),
                                                 .player = m_session.player(),
                                                 .state = m_session.editor(),
                                                 .LastMusicFolder = m_session.intake().LastMusicFolder,
                                                 .now = &QDateTime::currentDateTime,
                                                 .hooks = nameEditHooks()},
                                   &m_hooks.owner);
    editor.release()->showModally(closed);
}

void Commands::showNotesForm(QWidget &owner, const QString &notes,
                             const std::function<void(const QString &)> &closed)
{
    auto *form = new NotesForm(
        notes, m_session.desktop(), m_session.options(), m_session.optionsStore(),
        [closed](const QString &text, bool /*changed*/) { closed(text); }, &owner);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->open();
}

void Commands::cmdNotes_Click()
{
    static_cast<void>(guarded(m_session.desktop(), u"Notes"_s, [this] {
        const Catalogue &catalogue = m_session.catalogue();
        auto form = std::make_unique<MemoForm>(
            NoteBook(m_session.catalogue(), m_session.settings()),
            NoteDrafts({folders::state(), catalogue.DatabaseFolder}, catalogue.DatabaseFile),
            m_session.desktop(), m_session.options(), &m_hooks.owner);
        form->setAttribute(Qt::WA_DeleteOnClose);
        form.release()->open();
    }));
}

} // namespace quaverly
