// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "playlists/PlayListHeaders.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPlayListHeader;
}

namespace quaverly {

struct Options;

/** Name and notes of a play list, a new one or one that is there. */
class frmPlayListHeader final : public QDialog
{
    Q_OBJECT

public:
    /** @p edited is the list chosen in cmbHeader, in EditingHeader; without one a new list is made. All
     * references outlive the screen. @throws dao::DaoError. */
    frmPlayListHeader(Desktop &desktop, PlayListStore &lists, const Options &options,
                      const std::optional<PlayListName> &edited, QWidget *parent = nullptr);
    ~frmPlayListHeader() override;

Q_SIGNALS:
    /** A list of that name was made, or got that name; the screen is still open. */
    void added(const QString &name);
    void edited(const QString &name);
    void deleted();

private:
    void wire();
    void Form_Load(const Options &options);
    void loadEdited();
    void cmdOK_Click();
    void cmdDelete_Click();
    [[nodiscard]] bool addList(const QString &name);
    [[nodiscard]] bool editList(const QString &name);

    std::unique_ptr<Ui::frmPlayListHeader> m_ui;
    Desktop &m_desktop;
    PlayListStore &m_lists;
    PlayListHeaders m_headers;
    std::optional<PlayListName> m_edited;
    qint64 m_EditListID = 0;
};

} // namespace quaverly
