// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tags/TagPage.h"

#include <QObject>

#include <functional>

namespace Ui {
class frmTags;
}

namespace quaverly {

class Desktop;

/** The pictures of the chosen files on the tags' screen: shown, added, replaced, exported, removed. */
class TagPictures final : public QObject
{
    Q_OBJECT

public:
    struct Hooks
    {
        std::function<QList<int>()> songs;
        /** Runs a command of the screen. */
        std::function<void(const std::function<void()> &)> work;
    };
    /** All of it outlives this object. */
    TagPictures(Ui::frmTags &ui, Desktop &desktop, TagPage &page, Hooks hooks);

    void show();

private:
    void cmbPictures_Change();
    void cmdAddPicture_Click();
    void cmdReplacePicture_Click();
    void cmdExportPicture_Click();
    void cmdRemovePicture_Click();
    /** Nothing when none was chosen, or what was chosen is no picture: that is told. */
    [[nodiscard]] std::optional<shell::TagPicture> choose();
    void change(const std::function<void(QList<shell::TagPicture> &)> &change);
    [[nodiscard]] const QList<shell::TagPicture> &pictures() const;
    [[nodiscard]] const shell::TagPicture *chosen() const;

    Ui::frmTags &m_ui;
    Desktop &m_desktop;
    TagPage &m_page;
    Hooks m_hooks;
};

} // namespace quaverly
