// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "playlists/ManualSong.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPlayListDetail;
}

namespace quaverly {

struct Options;

/** One track of a play list: a song that is not catalogued, or the texts of one of the list. */
class frmPlayListDetail final : public QDialog
{
    Q_OBJECT

public:
    /** AddingManualSong or EditingListSong. */
    enum class Role { Add, Edit };

    /** The list's ListID, and the key of the track that is edited. */
    struct Place
    {
        qint64 ListID = 0;
        qint64 key = 0;
    };

    /** All references outlive the screen. @throws dao::DaoError. */
    frmPlayListDetail(Desktop &desktop, PlayListStore &lists, const Options &options, Role role, Place place,
                      QWidget *parent = nullptr);
    ~frmPlayListDetail() override;

Q_SIGNALS:
    /** The track was written. */
    void saved(const quaverly::TrackTexts &song);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wire();
    void Form_Load(const Options &options);
    /** Fills the boxes from the edited track. */
    void LoadDetail();
    void cmdOK_Click();
    void cmdBrowse_Click();
    void txtFileName_Validate();

    std::unique_ptr<Ui::frmPlayListDetail> m_ui;
    Desktop &m_desktop;
    PlayListStore &m_lists;
    ManualSong m_songs;
    Role m_role;
    Place m_place;
};

} // namespace quaverly
