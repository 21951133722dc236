// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureCommands.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "pictures/Pics3.h"
#include "pictures/PictureForm.h"
#include "platform/text/Text.h"
#include "songlist/DisplayedSet.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace quaverly {

PictureCommands::PictureCommands(PictureParts parts) : m_parts(std::move(parts))
{}

PictureCommands::~PictureCommands()
{
    // It listens to the displayed set, which goes after these commands.
    delete m_pics3;
}

void PictureCommands::run(const std::function<void()> &command)
{
    guarded(m_parts.services.desktop, u"Error"_s, command, withErrorNumber(u".    Error number: "_s));
}

void PictureCommands::cmdPicture_Click(const PictureEditor &editor, int slot, QWidget *nameEdit)
{
    run([&] {
        m_pictureIndex = slot;
        const QString name = editor.file(slot);
        const PictureFiles files(m_parts.services.catalogue);
        if (isGreaterThanBlank(name) && !files.exists(name))
            tellBroken(files.pathOf(name));
        showForm(editor, {.slot = slot, .pasteName = {}}, nameEdit);
    });
}

void PictureCommands::tellBroken(const QString &path)
{
    m_parts.services.desktop.MessageBox(
        u"The file:\r"_s + path +
            u" was not found.\rYou may have deleted it from another record.  You may "
            "want to blank out the file name shown below the button (and then Save "
            "this record) if you do not choose another picture."_s,
        u"File not found.  Link broken."_s, Icon::Information);
}

void PictureCommands::showForm(const PictureEditor &editor, const PictureOpening &opening, QWidget *nameEdit)
{
    if (m_form)
        return;
    auto link =
        std::make_unique<PictureLink>(m_parts.services.desktop, m_parts.services.catalogue, editor, opening);
    m_form = new PictureForm(m_parts.services.desktop, m_parts.services.options, std::move(link),
                             m_parts.set.isDuplicateView(), nameEdit);
    m_form->showModally([this] {
        m_pasting = false;
        m_form = nullptr;
        ShowSongPictures();
    });
}

void PictureCommands::showPictureMenu(const PictureEditor &editor, int slot, QPoint globalPlace,
                                      QWidget *nameEdit)
{
    m_pictureIndex = slot;
    auto *menu = new QMenu(nameEdit);
    menu->setObjectName(u"mnuFile"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *paste = menu->addAction(u"&Paste image"_s);
    paste->setObjectName(u"mnuFilePasteImage"_s);
    paste->setEnabled(m_parts.services.desktop.isPictureOnClipboard());
    QObject::connect(paste, &QAction::triggered, menu,
                     [this, editor, nameEdit] { mnuFilePasteImage_Click(editor, nameEdit); });
    menu->popup(globalPlace);
}

void PictureCommands::mnuFilePasteImage_Click(const PictureEditor &editor, QWidget *nameEdit)
{
    run([&] {
        if (!m_parts.services.desktop.isPictureOnClipboard())
            return;
        const auto name =
            askPictureName(m_parts.services.desktop, u"Abbey Road Cover"_s, proposedName(editor.song()));
        if (!name)
            return;
        m_pasting = true;
        showForm(editor, {.slot = m_pictureIndex, .pasteName = *name}, nameEdit);
    });
}

void PictureCommands::cmdPictures_Click()
{
    run([this] { togglePics3(); });
}

void PictureCommands::togglePics3()
{
    if (!m_parts.set.Data1().hasRows()) {
        m_parts.services.desktop.MessageBox(u"There are no pictures to display"_s, u"No pictures"_s);
        return;
    }
    if (m_pics3 && m_pics3->isVisible()) {
        m_pics3->hide();
        return;
    }
    if (!m_pics3)
        m_pics3 = new Pics3(m_parts.services.catalogue, m_parts.set.Data1(), m_parts.nameList);
    m_pics3->showThree();
    m_pics3->place();
    m_pics3->show();
    if (m_parts.focusCmdPictures)
        m_parts.focusCmdPictures();
}

void PictureCommands::ShowSongPictures()
{
    if (m_pics3)
        m_pics3->ShowSongPictures();
}

void PictureCommands::unloadPics3()
{
    delete m_pics3;
}

} // namespace quaverly
