// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Services.h"
#include "pictures/Pics3.h"
#include "pictures/PictureForm.h"
#include "pictures/PictureLink.h"

#include <QPoint>
#include <QPointer>

class QWidget;

namespace quaverly {

class DisplayedSet;

/** What the picture commands work with. All of it outlives them. */
struct PictureParts
{
    Services services;
    DisplayedSet &set;
    /** The main screen, over which the side window stands; may be null. */
    QWidget *nameList = nullptr;
    /** Gives the main screen's Pictures button the focus. */
    std::function<void()> focusCmdPictures;
};

/** What the picture buttons of the record editor and of the main screen do. */
class PictureCommands final
{
public:
    explicit PictureCommands(PictureParts parts);
    ~PictureCommands();
    PictureCommands(const PictureCommands &) = delete;
    PictureCommands &operator=(const PictureCommands &) = delete;

    /** cmdPicture1 to cmdPicture8 of the editor @p nameEdit, over which the picture is shown. */
    void cmdPicture_Click(const PictureEditor &editor, int slot, QWidget *nameEdit);
    /** The right button on one of them: pops up mnuFile. */
    void showPictureMenu(const PictureEditor &editor, int slot, QPoint globalPlace, QWidget *nameEdit);
    /** Pastes into the slot that was clicked last. */
    void mnuFilePasteImage_Click(const PictureEditor &editor, QWidget *nameEdit);

    /** Shows or hides the side window. */
    void cmdPictures_Click();
    /** The current row is another, or its pictures are. */
    void ShowSongPictures();
    void unloadPics3();

    /** Slot of the last click, from 1. */
    [[nodiscard]] int PictureIndex() const { return m_pictureIndex; }
    /** True while a picture is being pasted from the editor. */
    [[nodiscard]] bool PastingPicture() const { return m_pasting; }
    /** Null while it is closed. */
    [[nodiscard]] PictureForm *form() const { return m_form; }
    /** Null before it was shown first. */
    [[nodiscard]] Pics3 *pics3() const { return m_pics3; }

private:
    void run(const std::function<void()> &command);
    void showForm(const PictureEditor &editor, const PictureOpening &opening, QWidget *nameEdit);
    void tellBroken(const QString &path);
    void togglePics3();

    PictureParts m_parts;
    int m_pictureIndex = 1;
    bool m_pasting = false;
    QPointer<PictureForm> m_form;
    QPointer<Pics3> m_pics3;
};

} // namespace quaverly
