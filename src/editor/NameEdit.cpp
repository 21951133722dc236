// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/NameEdit.h"

#include "catalogue/Options.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "editor/ControlTexts.h"
#include "editor/EditorState.h"
#include "editor/LeaveGate.h"
#include "lists/PlayerState.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"
#include "ui_NameEdit.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include <utility>

using namespace Qt::StringLiterals;

// The screen's life: made, loaded, placed, unloaded.
namespace quaverly {

namespace {

constexpr QSize FirstSize(860, 640);
constexpr int HighTopTwips = 10;
/** Dots to the inch at 12 twips to the pixel, and the height that counts as little there. */
constexpr int LargeDots = 120;
constexpr int LittleHeight = 800;

QString miscLabel(int number)
{
    return u"Misc Field "_s + QString::number(number);
}

} // namespace

NameEdit::NameEdit(NameEditParts parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::NameEdit>()), m_parts(std::move(parts)),
      m_save({m_parts.desktop, m_parts.set, m_parts.catalogue, m_parts.options, m_parts.state, m_parts.now}),
      m_walk(m_parts.catalogue, m_parts.set.Data1()),
      m_template(m_parts.desktop, m_parts.options, m_parts.settings, m_parts.set.Data1()),
      m_lists(m_parts.catalogue, m_parts.now), m_addToPlayList(m_parts.desktop, m_parts.player, m_lists)
{
    m_ui->setupUi(this);
    setUpControls();
    wire();
    Form_Load();
}

NameEdit::~NameEdit() = default;

void NameEdit::showModally(std::function<void()> closed)
{
    connect(this, &QDialog::finished, this, [closed = std::move(closed)] { closed(); });
    placeScreen();
    m_parts.mainScreen.setScreenEnabled(false);
    ModalScreen::showModally();
    // A dialog selects the text of its first field.
    m_ui->txtSongName->home(false);
}

void NameEdit::placeScreen()
{
    const QRect area = screen()->availableGeometry();
    const QSize room = roomFor(*this);
    resize(FirstSize.boundedTo(room));
    const EditorState &state = m_parts.state;
    const QPoint stored(state.EditFormLeft / TwipsPerPixel, state.EditFormTop / TwipsPerPixel);
    if (state.EditFormLeft >= 1 && QGuiApplication::screenAt(stored) != nullptr) {
        move(stored);
        return;
    }
    const bool atTop =
        m_parts.options.TabletActive ||
        (qRound(screen()->logicalDotsPerInchX()) == LargeDots && screen()->size().height() < LittleHeight);
    const QPoint centre = area.center() - QRect({}, size() + (area.size() - room)).center();
    move(centre.x(), atTop ? area.top() + HighTopTwips / TwipsPerPixel : centre.y());
}

void NameEdit::Form_Load()
{
    const Options &options = m_parts.options;
    if (m_parts.set.isDuplicateView()) {
        m_ui->cmdSave->setEnabled(false);
        m_ui->cmdAddNew->setEnabled(false);
    }
    loadPlayLists();
    m_ui->ImageKeyboard->setVisible(options.TabletActive);
    hideForList();
    m_ui->lblTodaysDate->setText(shortDate(m_parts.now().date().startOfDay(Qt::UTC)));
    m_parts.state.RecordSaved = false;
    m_parts.state.NewRecordSaved = false;
    setRecordDirty(false);
    enableHooks();
    loadScreen();
    m_ui->txtSongName->setFocus();
}

void NameEdit::loadScreen()
{
    if (!m_parts.state.EditMode) {
        loadNewRecord();
        return;
    }
    DataControl &displayed = m_parts.set.Data1();
    displayed.findRecord(displayed.Recordset().value(u"RecordID"_s).toLongLong());
    showMode(true);
    loadExisting();
}

// What such a list shows is no place to add to, or to delete from.
void NameEdit::hideForList()
{
    if (m_parts.mainScreen.lblFilterMsg().startsWith("Records"_L1)) {
        m_ui->cmdAddNew->hide();
        m_ui->cmdDelete->hide();
    }
    if (m_parts.set.texts().ListSelectionClause.contains("Selected ="_L1))
        m_ui->cmdAddNew->hide();
}

void NameEdit::loadPlayLists()
{
    m_playLists = std::make_unique<AddToPlayListBox>(*m_ui->cmbHeader, *m_ui->txtSongAddedToPlaylist);
    m_playLists->showLists(m_lists.lists(), m_parts.player.CurrentPlayListName);
    showPlayListTip();
}

void NameEdit::LoadFormFromData()
{
    m_loaded = textsOf(m_parts.set.Data1().Recordset());
    for (auto control = m_controls.cbegin(); control != m_controls.cend(); ++control)
        setControlText(*control.value(), m_loaded.value(control.key()));
    showUpdated(m_loaded.value(u"DateUpdated"_s));
    setRecordDirty(false);
}

void NameEdit::loadExisting()
{
    LoadFormFromData();
    constexpr int MiscFields = 3;
    for (int number = 1; number <= MiscFields; ++number) {
        const QString field = u"MiscField%1_Desc"_s.arg(number);
        if (text(field).isEmpty())
            setText(field, miscLabel(number));
    }
    setRecordDirty(false);
}

void NameEdit::loadNewRecord()
{
    showMode(false);
    showUpdated({});
    if (m_template.isSet() && m_template.find())
        loadFromTemplate();
}

// Clearing these makes the new record a changed one at once, and leaves out more than the message about
// templates says: both are meant. The file is the other song's.
void NameEdit::loadFromTemplate()
{
    LoadFormFromData();
    for (const auto &field : {u"SongName"_s, u"ID"_s, u"BPM"_s, u"PathName"_s, u"FileName"_s})
        setText(field, {});
    m_ui->cmbGenre->setCurrentIndex(-1);
    m_ui->cmbGenre->clearEditText();
    showUpdated({});
}

void NameEdit::showUpdated(const QString &date)
{
    m_ui->lblDateUpdated->setText(date);
    m_ui->lblUpdated->setVisible(!date.isEmpty());
}

void NameEdit::showMode(bool existing)
{
    m_parts.state.EditMode = existing;
    m_ui->cmdCategories->setVisible(existing);
    m_ui->cmdWebLookup->setVisible(existing);
    m_ui->cmdPlay->setEnabled(existing && m_parts.hooks.playFromEditor);
    showCaption();
    showFileButtons();
}

void NameEdit::showCaption()
{
    const QString caption =
        m_parts.state.EditMode ? u"View/Edit an Existing Record"_s : u"Add a New Record"_s;
    setWindowTitle(m_parts.state.RecordDirty ? u"• "_s + caption : caption);
}

void NameEdit::setRecordDirty(bool dirty)
{
    m_parts.state.RecordDirty = dirty;
    showCaption();
}

QString NameEdit::text(const QString &field) const
{
    QWidget *control = m_controls.value(field);
    // An untouched note is kept to the letter, with the line ends that it came with.
    if (control == m_ui->txtNotes && !m_ui->txtNotes->document()->isModified() && m_loaded.contains(field))
        return m_loaded.value(field);
    return control == nullptr ? QString() : controlText(*control);
}

void NameEdit::setText(const QString &field, const QString &text)
{
    if (QWidget *control = m_controls.value(field))
        setControlText(*control, text);
    if (field == u"Notes"_s)
        m_ui->txtNotes->document()->setModified();
    setRecordDirty(true);
}

qint64 NameEdit::recordID() const
{
    return m_parts.state.EditMode ? m_parts.set.Data1().currentText(u"RecordID"_s).toLongLong() : 0;
}

SongTexts NameEdit::texts() const
{
    SongTexts all;
    for (const EditedField &edited : editedFields())
        all[edited.field] = text(edited.field);
    return all;
}

void NameEdit::reject()
{
    unload();
}

void NameEdit::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_unloaded);
    unload();
}

void NameEdit::unload()
{
    if (std::exchange(m_unloaded, true))
        return;
    bool goes = true;
    handle([&] { goes = Form_Unload(); });
    if (!goes) {
        m_unloaded = false;
        return;
    }
    m_gate->setOpen(true);
    const auto assignCategory =
        m_assignCategory ? m_parts.hooks.assignCategoryOnAdd : std::function<void()>();
    m_parts.mainScreen.setScreenEnabled(true);
    ModalScreen::reject();
    if (assignCategory)
        assignCategory();
}

bool NameEdit::Form_Unload()
{
    EditorState &state = m_parts.state;
    state.EditFormLeft = x() * TwipsPerPixel;
    state.EditFormTop = y() * TwipsPerPixel;
    if (m_parts.set.isDuplicateView())
        state.RecordDirty = false;
    if (state.RecordDirty) {
        if (!mayLoseChanges())
            return false;
        state.PictureChanged = false;
    }
    state.RecordDirty = false;
    giveUpRename();
    if (!state.RecordSaved)
        return true;
    state.PictureChanged = false;
    m_walk.refreshForList(state.CurrentRecordID);
    m_parts.desktop.letEventsRun();
    m_assignCategory = std::exchange(state.NewRecordSaved, false) &&
                       m_parts.options.AssignCategoryOnAdd == 1 && !text(u"SongName"_s).trimmed().isEmpty();
    return true;
}

// The record is to be as it was before the save that was refused; what came of it is settled here and not
// only at the next start, since until then the list would name a file that isn't there.
void NameEdit::giveUpRename()
{
    const auto told = m_save.giveUp();
    if (!told)
        return;
    m_walk.refreshForList(m_parts.set.Data1().currentText(u"RecordID"_s).toLongLong());
    if (!told->isEmpty())
        m_parts.desktop.MessageBox(*told, u"Renamed files"_s, Icon::Exclamation);
}

bool NameEdit::mayLoseChanges()
{
    const auto ask = [this](const QString &text, const QString &title, std::optional<Answer> usual) {
        return m_parts.desktop.MessageBox(text, title, Icon::None, Buttons::YesNo, usual) == Answer::Yes;
    };
    if (m_parts.state.PictureChanged)
        return ask(
            u"You changed a picture linked to this record.  If you proceed, the file names shown under "
            "the Picture buttons will revert to the OLD file names, causing confusion and breaking "
            "this picture link.\r\rLose your changes?"_s,
            u" Warning - Picture was changed"_s, Answer::No);
    return ask(u"Lose any changes?"_s, u"Confirmation"_s, {});
}

void NameEdit::handle(const std::function<void()> &handler)
{
    static_cast<void>(guarded(m_parts.desktop, u"Error"_s, handler, {{}, Icon::None}));
}

} // namespace quaverly
