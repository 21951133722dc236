// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlayListDetail.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmPlayListDetail.h"

#include <QFocusEvent>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(560, 320);

} // namespace

frmPlayListDetail::frmPlayListDetail(Desktop &desktop, PlayListStore &lists, const Options &options,
                                     Role role, Place place, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPlayListDetail>()), m_desktop(desktop), m_lists(lists),
      m_songs(desktop, lists), m_role(role), m_place(place)
{
    m_ui->setupUi(this);
    Form_Load(options);
    wire();
}

frmPlayListDetail::~frmPlayListDetail() = default;

void frmPlayListDetail::wire()
{
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmPlayListDetail::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmPlayListDetail::reject);
    connect(m_ui->cmdBrowse, &QPushButton::clicked, this, &frmPlayListDetail::cmdBrowse_Click);
    m_ui->txtFileName->installEventFilter(this);
}

void frmPlayListDetail::Form_Load(const Options &options)
{
    setWindowTitle(m_role == Role::Add ? u"Add a new song title that is not in database to this Play List"_s
                                       : u"Edit an existing song"_s);
    if (options.TabletActive)
        sizeForFingers(*this);
    resize(sizeHint().expandedTo(FirstSize));
    if (m_role == Role::Edit)
        LoadDetail();
}

void frmPlayListDetail::LoadDetail()
{
    const auto track = m_lists.oneTrack(m_place.ListID, m_place.key);
    if (!track)
        return;
    m_ui->txtSongName->setText(track->SongTitle);
    m_ui->txtArtistName->setText(track->ArtistName);
    m_ui->txtFileName->setText(track->FileName);
    m_ui->txtNotes->setPlainText(track->Notes);
}

bool frmPlayListDetail::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut && isVisible()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        // Behind the event, since a box takes the focus too.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            QMetaObject::invokeMethod(this, &frmPlayListDetail::txtFileName_Validate, Qt::QueuedConnection);
    }
    return QDialog::eventFilter(watched, event);
}

void frmPlayListDetail::txtFileName_Validate()
{
    guarded(m_desktop, windowTitle(), [this] {
        if (isVisible())
            m_songs.checkFile(m_ui->txtFileName->text());
    });
}

void frmPlayListDetail::cmdBrowse_Click()
{
    guarded(m_desktop, windowTitle(), [this] {
        if (const auto file = m_songs.browse(m_ui->txtFileName->text()))
            m_ui->txtFileName->setText(*file);
    });
}

void frmPlayListDetail::cmdOK_Click()
{
    bool done = false;
    guarded(m_desktop, windowTitle(), [&] {
        m_ui->txtSongName->setText(singleQuotes(m_ui->txtSongName->text()));
        const TrackTexts song = ManualSong::kept({m_ui->txtSongName->text(), m_ui->txtArtistName->text(),
                                                  m_ui->txtFileName->text(), m_ui->txtNotes->toPlainText()});
        done = m_role == Role::Add ? m_songs.add(m_place.ListID, song)
                                   : m_songs.edit(m_place.ListID, m_place.key, song);
        if (done)
            Q_EMIT saved(song);
        else
            m_ui->txtSongName->setFocus();
    });
    if (done)
        accept();
}

} // namespace quaverly
