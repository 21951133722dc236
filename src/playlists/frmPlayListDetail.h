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

    /** The list's ListID and the track's number in it. All references outlive the screen. */
    struct Place
    {
        qint64 ListID = 0;
        qint64 ListTrackID = 0;
    };

    frmPlayListDetail(Desktop &desktop, PlayListStore &lists, const Options &options, Role role, Place place,
                      QWidget *parent = nullptr);
    ~frmPlayListDetail() override;

    /** Fills the boxes from the track of that number, when there is one. @throws dao::DaoError. */
    void LoadDetail(qint64 listTrackId);

Q_SIGNALS:
    /** The track was written, with that title. */
    void saved(const QString &songTitle);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wire();
    void Form_Load(const Options &options);
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
