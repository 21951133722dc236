// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/NameEdit.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/Icons.h"
#include "desktop/ScreenLook.h"
#include "editor/EditorState.h"
#include "editor/FieldGate.h"
#include "editor/FieldKeys.h"
#include "editor/FileFields.h"
#include "editor/LabelEdit.h"
#include "editor/LaterFields.h"
#include "editor/OpenLink.h"
#include "editor/PictureButtons.h"
#include "editor/PlayListChoice.h"
#include "editor/ShownRecord.h"
#include "editor/SongControls.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Text.h"
#include "platform/text/Twips.h"
#include "songlist/DisplayedSet.h"
#include "songlist/MainScreen.h"
#include "ui_NameEdit.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include <utility>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(860, 640);
constexpr int HighTopTwips = 10;
/** Dots to the inch at 12 twips to the pixel, and the height that counts as little there. */
constexpr int LargeDots = 120;
constexpr int LittleHeight = 800;

} // namespace

NameEdit::NameEdit(NameEditParts parts, QWidget *parent)
    : ModalScreen(parent), handle(parts.services.desktop, [] { return u"Error"_s; }, {{}, Icon::None}),
      m_ui(std::make_unique<Ui::NameEdit>()), m_parts(std::move(parts))
{
    m_ui->setupUi(this);
    addLaterFields(*this, *m_ui->fieldsLayout, m_ui->cmdBrowseFile);
    build();
    setUpLook();
    wire();
    Form_Load();
}

// What the controls do while they go is nobody's business any more.
NameEdit::~NameEdit()
{
    m_gate->setOpen(true);
}

void NameEdit::build()
{
    const Handle handler = [this](const std::function<void()> &what) { handle(what); };
    const auto row = [this] { return m_record->row(); };
    m_controls = std::make_unique<SongControls>(*this, [this] { setRecordDirty(true); });
    m_gate = std::make_unique<FieldGate>(*this, *m_ui, m_parts.services.desktop, row, handler);
    m_files = std::make_unique<FileFields>(
        *m_ui, *m_controls, *m_gate,
        FileFieldsParts{.services = m_parts.services,
                        .state = m_parts.state,
                        .LastMusicFolder = m_parts.LastMusicFolder,
                        .row = row,
                        .editTags = [this](const QString &path) { m_parts.hooks.editTags(*this, path); },
                        .handle = handler});
    m_playLists =
        std::make_unique<PlayListChoice>(*m_ui, m_parts.services.desktop, m_parts.set,
                                         m_parts.services.catalogue, m_parts.player, m_parts.now, handler);
    m_record =
        std::make_unique<ShownRecord>(*this, *m_ui, *m_controls,
                                      ShownRecordParts{.services = m_parts.services,
                                                       .set = m_parts.set,
                                                       .settings = m_parts.settings,
                                                       .state = m_parts.state,
                                                       .now = m_parts.now,
                                                       .canPlay = m_parts.hooks.playFromEditor != nullptr,
                                                       .modeShown = [this] { m_files->showButtons(); },
                                                       .unload = [this] { unload(); },
                                                       .handle = handler});
}

void NameEdit::wire()
{
    std::function<void(int)> showPicture;
    if (m_parts.hooks.showPicture)
        showPicture = [this](int slot) { handle([&] { m_parts.hooks.showPicture(*this, slot); }); };
    m_pictures = std::make_unique<PictureButtons>(*this, showPicture);
    // Looks at keys before the gate does, which was made first.
    new FieldKeys(
        *this, *m_ui,
        {.enlargeNotes = [this] { txtNotes_DblClick(); },
         .openLink =
             [this](const QString &text) { handle([&] { OpenLink(m_parts.services.desktop, text); }); },
         .showMenu = [this](const QWidget &control, QPoint place) { return showMenu(control, place); }});
    const auto on = [this](QPushButton *button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    on(m_ui->cmdSave, &NameEdit::cmdSave_Click);
    on(m_ui->cmdCancel, &NameEdit::reject);
    on(m_ui->cmdPlay, &NameEdit::cmdPlay_Click);
    on(m_ui->cmdCategories, &NameEdit::cmdCategories_Click);
    on(m_ui->ImageKeyboard, &NameEdit::ImageKeyboard_Click);
    on(m_ui->cmdWebLookup, [this] { handle([this] { m_parts.hooks.cmdWebLookup(*this); }); });
}

void NameEdit::setUpLook()
{
    m_ui->cmdPlay->setIcon(icon(u"play"_s));
    m_ui->cmdDelete->setIcon(icon(u"delete"_s));
    m_ui->cmdAddNew->setIcon(icon(u"add"_s));
    QPalette linked = palette();
    linked.setColor(QPalette::Text, linked.color(QPalette::Link));
    m_ui->cmbHeader->setPalette(linked);
    for (QLabel *faint : {m_ui->lblNotes, m_ui->lblAdded, m_ui->lblDateAdded, m_ui->lblUpdated,
                          m_ui->lblDateUpdated, m_ui->lblToday, m_ui->lblTodaysDate})
        scaleFont(*faint, CaptionScale);
    if (!m_parts.services.options.TabletActive)
        return;
    sizeForFingers(*this);
    for (auto *label : findChildren<LabelEdit *>())
        label->setMinimumHeight(0);
}

void NameEdit::enableHooks()
{
    const NameEditHooks &hooks = m_parts.hooks;
    m_ui->cmdCategories->setEnabled(hooks.ShowCategoryAssign != nullptr);
    m_ui->cmdWebLookup->setEnabled(hooks.cmdWebLookup != nullptr);
}

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
        m_parts.services.options.TabletActive ||
        (qRound(screen()->logicalDotsPerInchX()) == LargeDots && screen()->size().height() < LittleHeight);
    const QPoint centre = area.center() - QRect({}, size() + (area.size() - room)).center();
    move(centre.x(), atTop ? area.top() + HighTopTwips / TwipsPerPixel : centre.y());
}

void NameEdit::Form_Load()
{
    const Options &options = m_parts.services.options;
    if (m_parts.set.isDuplicateView()) {
        m_ui->cmdSave->setEnabled(false);
        m_ui->cmdAddNew->setEnabled(false);
    }
    m_ui->ImageKeyboard->setVisible(options.TabletActive);
    hideForList();
    m_ui->lblTodaysDate->setText(shortDate(m_parts.now().date().startOfDay(Qt::UTC)));
    m_parts.state.RecordSaved = false;
    m_parts.state.NewRecordSaved = false;
    setRecordDirty(false);
    enableHooks();
    m_record->loadScreen();
    m_ui->txtSongName->setFocus();
}

// What such a list shows is no place to add to, or to delete from.
void NameEdit::hideForList()
{
    if (m_parts.set.view().kind == ListKind::InvalidFiles) {
        m_ui->cmdAddNew->hide();
        m_ui->cmdDelete->hide();
    }
    if (m_parts.set.texts().ListSelectionClause.contains("Selected ="_L1))
        m_ui->cmdAddNew->hide();
}

void NameEdit::setRecordDirty(bool dirty)
{
    m_record->setDirty(dirty);
}

QString NameEdit::text(const QString &field) const
{
    return m_controls->text(field);
}

void NameEdit::setText(const QString &field, const QString &text)
{
    m_controls->setText(field, text);
}

qint64 NameEdit::recordID() const
{
    return m_record->recordID();
}

void NameEdit::cmdSave_Click()
{
    handle([this] {
        if (m_record->save() != SaveOutcome::Refused)
            unload();
    });
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
    state.PictureSitting.clear();
    m_record->leave();
    if (!state.RecordSaved)
        return true;
    m_parts.services.desktop.letEventsRun();
    m_assignCategory = std::exchange(state.NewRecordSaved, false) &&
                       m_parts.services.options.AssignCategoryOnAdd == 1 &&
                       !text(u"SongName"_s).trimmed().isEmpty();
    return true;
}

bool NameEdit::mayLoseChanges()
{
    const auto ask = [this](const QString &text, const QString &title, std::optional<Answer> usual) {
        return m_parts.services.desktop.MessageBox(text, title, Icon::None, Buttons::YesNo, usual) ==
               Answer::Yes;
    };
    if (m_parts.state.PictureChanged)
        return ask(
            u"You changed a picture linked to this record.  If you proceed, the file names shown under "
            "the Picture buttons will revert to the OLD file names, causing confusion and breaking "
            "this picture link.\r\rLose your changes?"_s,
            u" Warning - Picture was changed"_s, Answer::No);
    return ask(u"Lose any changes?"_s, u"Confirmation"_s, {});
}

bool NameEdit::showMenu(const QWidget &control, QPoint globalPlace)
{
    const QString name = control.objectName();
    if (name == u"cmdWebLookup"_s && m_parts.hooks.showWebLookupMenu) {
        handle([&] { m_parts.hooks.showWebLookupMenu(*this, globalPlace); });
        return true;
    }
    const int slot = PictureButtons::slotOf(control);
    if (slot == 0 || !m_parts.hooks.showPictureMenu)
        return false;
    handle([&] { m_parts.hooks.showPictureMenu(*this, slot, globalPlace); });
    return true;
}

void NameEdit::cmdPlay_Click()
{
    handle([this] {
        const EditedSong song{text(u"PathName"_s), text(u"FileName"_s), m_parts.state.EditMode};
        m_parts.hooks.playFromEditor(song, {[this] {
                                                m_gate->setOpen(true);
                                                hide();
                                            },
                                            m_parts.hooks.hideNameList,
                                            [this] {
                                                show();
                                                m_gate->setOpen(false);
                                            }});
    });
}

void NameEdit::cmdCategories_Click()
{
    handle([this] { m_parts.hooks.ShowCategoryAssign(*this); });
}

void NameEdit::txtNotes_DblClick()
{
    if (!m_parts.hooks.showNotesForm)
        return;
    handle([this] {
        const QString before = text(u"Notes"_s);
        m_parts.hooks.showNotesForm(*this, before, [this, before](const QString &notes) {
            if (notes != before)
                setText(u"Notes"_s, notes);
            m_ui->txtNotes->moveCursor(QTextCursor::Start);
        });
    });
}

void NameEdit::ImageKeyboard_Click()
{
    if (m_parts.services.options.TabletActive)
        m_parts.services.desktop.ShowKeyboard();
}

} // namespace quaverly
