// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Spokes.h"

#include "desktop/Guard.h"
#include "history/frmHistory.h"
#include "main/Session.h"
#include "maintenance/frmChangeFileNamePath.h"
#include "maintenance/frmChangeFilePath.h"
#include "maintenance/frmReplace.h"
#include "notes/MemoForm.h"
#include "notes/NotesForm.h"
#include "platform/options/Folders.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

PictureEditor pictureEditor(NameEdit &editor)
{
    return {.text = [&editor](const QString &field) { return editor.text(field); },
            .setText = [&editor](const QString &field, const QString &text) { editor.setText(field, text); },
            .setRecordDirty = [&editor] { editor.setRecordDirty(true); },
            .setPictureChanged = [&editor] { editor.state().PictureChanged = true; },
            .recordId = editor.recordID()};
}

LookupSong lookupSong(const NameEdit &editor)
{
    return {editor.text(u"Artist"_s), editor.text(u"SongName"_s), editor.text(u"AlbumName"_s)};
}

} // namespace

Spokes::Spokes(Session &session, const SpokeHooks &hooks)
    : m_session(session), m_hooks(hooks), m_webLookup(session.desktop(), session.optionsStore()),
      categories({.catalogue = session.catalogue(),
                  .settings = session.settings(),
                  .set = session.displayedSet(),
                  .mainScreen = hooks.mainScreen,
                  .desktop = session.desktop(),
                  .options = session.options(),
                  .beforeBulk = hooks.beforeBulk},
                 hooks.owner),
      viewer(session.desktop(), session.options(), m_reportState),
      reports(session.desktop(), session.displayedSet(), session.catalogue(), session.options(),
              session.optionsStore(), viewer),
      playListReports(session.desktop(), session.catalogue(), viewer),
      csv(session.desktop(), session.displayedSet().Data1(), session.catalogue()),
      pictures({.desktop = session.desktop(),
                .catalogue = session.catalogue(),
                .set = session.displayedSet(),
                .options = session.options(),
                .nameList = &hooks.owner,
                .focusCmdPictures = hooks.focusCmdPictures}),
      playLists(playListParts(), [this] { return &m_hooks.owner; }), edit(editParts()),
      maintenance(
          maintenanceParts(), [this] { showMaintenance<frmReplace>(); },
          [this] { showMaintenance<frmChangeFilePath>(); }),
      duplicates(maintenanceParts()), fileCopy(maintenanceParts(), session.copyFolder()),
      history({.desktop = session.desktop(),
               .catalogue = session.catalogue(),
               .set = session.displayedSet(),
               .tell = hooks.tell,
               .showHistory = [this] { showHistory(); }})
{}

void Spokes::showHistory()
{
    (new frmHistory(m_session.desktop(), *m_session.catalogue().CatalogueDb, history, &m_hooks.owner))
        ->showModally();
}

void Spokes::unload()
{
    pictures.unloadPics3();
    viewer.unload();
}

MaintenanceParts Spokes::maintenanceParts()
{
    return {.catalogue = m_session.catalogue(),
            .set = m_session.displayedSet(),
            .mainScreen = m_hooks.mainScreen,
            .desktop = m_session.desktop(),
            .options = m_session.options(),
            .busy = m_busy,
            .beforeBulk = m_hooks.beforeBulk};
}

template <typename Screen> void Spokes::showMaintenance()
{
    (new Screen(maintenanceParts(), &m_hooks.owner))->showModally();
}

PlayListParts Spokes::playListParts()
{
    return {
        m_session.desktop(),
        m_hooks.player,
        m_session.player(),
        m_session.options(),
        m_session.optionsStore(),
        m_session.catalogue(),
        m_session.displayedSet(),
        m_session.intake().MusicFolder,
        m_session.lastPlayListFolder(),
        [this] { return m_session.media().makeMediaPlayer(); },
        folders::state() + u"populate-report.txt"_s,
        [this](PlayListReportKind kind, const PlayListName &list) {
            playListReports.RunPlayListReport(kind, list.ListName);
        },
        [this](QWidget *owner) { (new frmChangeFileNamePath(maintenanceParts(), owner))->showModally(); }};
}

EditParts Spokes::editParts()
{
    return {m_session.desktop(),
            m_session.displayedSet(),
            m_hooks.mainScreen,
            m_session.catalogue(),
            m_session.player(),
            m_session.editor(),
            [this](const std::function<void()> &closed) { showNameEdit(closed); },
            [this] { m_hooks.owner.show(); }};
}

NameEditHooks Spokes::nameEditHooks()
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
    hooks.cmdWebLookup = [this](NameEdit &editor) { m_webLookup.cmdWebLookup_Click(lookupSong(editor)); };
    hooks.showWebLookupMenu = [this](NameEdit &editor, QPoint place) { showWebLookupMenu(editor, place); };
    return hooks;
}

void Spokes::showWebLookupMenu(NameEdit &editor, QPoint place)
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

void Spokes::showNameEdit(const std::function<void()> &closed)
{
    auto editor = std::make_unique<NameEdit>(
        NameEditParts{m_session.desktop(), m_session.displayedSet(), m_hooks.mainScreen,
                      m_session.catalogue(), m_session.settings(), m_session.options(), m_session.player(),
                      m_session.editor(), m_session.intake().MusicFolder, &QDateTime::currentDateTime,
                      nameEditHooks()},
        &m_hooks.owner);
    editor.release()->showModally(closed);
}

void Spokes::showNotesForm(QWidget &owner, const QString &notes,
                           const std::function<void(const QString &)> &closed)
{
    auto *form = new NotesForm(
        notes, m_session.desktop(), m_session.options(), m_session.optionsStore(),
        [closed](const QString &text, bool /*changed*/) { closed(text); }, &owner);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->open();
}

void Spokes::cmdNotes_Click()
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
