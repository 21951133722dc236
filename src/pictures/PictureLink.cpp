// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureLink.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "pictures/PictureSql.h"
#include "platform/store/History.h"
#include "platform/text/Text.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

PictureSong PictureEditor::song() const
{
    return {text(u"Artist"_s), text(u"SongName"_s), text(u"AlbumName"_s)};
}

PictureLink::PictureLink(Desktop &desktop, Catalogue &catalogue, PictureEditor editor,
                         const PictureOpening &opening)
    : m_desktop(desktop), m_catalogue(catalogue), m_files(catalogue), m_editor(std::move(editor)),
      m_slot(opening.slot), m_pasting(!opening.pasteName.isEmpty()),
      m_name(m_pasting ? opening.pasteName : m_editor.file(opening.slot))
{}

void PictureLink::open()
{
    if (m_pasting)
        takeFromClipboard(m_name);
    else if (m_files.exists(m_name))
        showFile(m_files.pathOf(m_name));
}

bool PictureLink::hasOthers() const
{
    for (int slot = 1; slot <= PictureCount; ++slot) {
        if (slot != m_slot && isGreaterThanBlank(m_editor.file(slot)))
            return true;
    }
    return false;
}

void PictureLink::step(int direction)
{
    for (int slot = m_slot + direction; slot >= 1 && slot <= PictureCount; slot += direction) {
        const QString name = m_editor.file(slot);
        if (!isGreaterThanBlank(name) || !m_files.exists(name))
            continue;
        m_slot = slot;
        m_name = name;
        showFile(m_files.pathOf(name));
        return;
    }
}

void PictureLink::showFile(const QString &path)
{
    const Hourglass hourglass(m_desktop);
    clear();
    show(readPicture(path, PictureBoxSize));
}

void PictureLink::clear()
{
    m_box = {};
    m_replaced = false;
}

void PictureLink::show(std::optional<Picture> picture)
{
    if (picture) {
        m_box = paintedBox(*picture, PictureBoxSize);
        return;
    }
    m_desktop.resetPointer();
    m_desktop.MessageBox(u"Invalid picture.  The following file formats are supported: JPEG (.jpg) files, "
                         "bitmap (.bmp) files, GIF (.gif) files, PNG (.png) files, and WebP (.webp) files."_s,
                         u"Invalid Picture"_s);
}

bool PictureLink::isTaken(const Picture &picture)
{
    if (picture.fault.isEmpty())
        return true;
    m_desktop.resetPointer();
    return m_desktop.MessageBox(u"This picture is damaged, and only what can be read of it is shown.\r\n("_s +
                                    picture.fault + u")\r\n\r\nDo you want to use it all the same?"_s,
                                u"Damaged Picture"_s, Icon::Exclamation, Buttons::YesNo,
                                Answer::No) == Answer::Yes;
}

bool PictureLink::loadFile()
{
    m_files.makeFolder();
    const std::optional<QString> path = m_desktop.ShowOpenDialog(
        {u"Load Picture"_s, u"All Files (*.*)|*.*|JPG Files & (*.jpg)|*.jpg"_s, m_files.folder(), {}});
    if (!path)
        return false;
    const Hourglass hourglass(m_desktop);
    std::optional<Picture> picture = readPicture(*path, PictureBoxSize);
    if (picture && !isTaken(*picture))
        return false;
    const bool isPicture = picture.has_value();
    show(std::move(picture));
    if (!isPicture)
        return false;
    m_name = linkNameOf(*path);
    // A stored picture is linked as it is, whichever songs have it already.
    m_replaced = QFileInfo(*path) != QFileInfo(m_files.pathOf(m_name));
    return true;
}

void PictureLink::paste()
{
    if (!m_desktop.isPictureOnClipboard())
        return;
    if (const auto name = askPictureName(m_desktop, u"Joe's Song"_s, {}))
        takeFromClipboard(*name);
}

void PictureLink::takeFromClipboard(const QString &name)
{
    QImage held;
    std::optional<Picture> picture;
    // What is offered there may still be damaged, or too large to be read.
    if (m_desktop.takeFromClipboard(held))
        picture = takePicture(held, PictureBoxSize);
    const bool taken = picture.has_value();
    show(std::move(picture));
    if (taken) {
        m_name = name;
        m_replaced = true;
    }
}

QStringList PictureLink::column(const QString &sql) const
{
    const auto rows = m_catalogue.CatalogueDb->OpenRecordset(sql);
    QStringList texts;
    for (; !rows->atEOF(); rows->MoveNext())
        texts += rows->text(rows->Fields().first().name);
    return texts;
}

bool PictureLink::isInOtherSlot(const QString &name) const
{
    for (int slot = 1; slot <= PictureCount; ++slot) {
        if (slot != m_slot && m_editor.file(slot) == name)
            return true;
    }
    return false;
}

bool PictureLink::isOfOtherSong(const QString &name) const
{
    return !column(picturesql::otherSongsWith(name, m_editor.recordId)).isEmpty();
}

bool PictureLink::remove()
{
    const QString name = m_name.trimmed();
    const QString product = QString::fromUtf16(ProductName);
    const QString title = u"Delete Confirmation"_s;
    if (!m_files.exists(name)) {
        m_desktop.MessageBox(u"Picture not yet saved in "_s + product +
                                 u", so you can't delete it.  Use the Cancel button instead."_s,
                             title, Icon::Stop);
        return false;
    }
    if (m_desktop.MessageBox(u"Are you sure you want to delete this picture from "_s + product + u'?', title,
                             Icon::Exclamation, Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    QStringList songs = column(picturesql::songsWith(name));
    // The song itself counts once more for a second slot; one that is not stored yet has no row.
    if (songs.size() >= 2 || isInOtherSlot(name) || isOfOtherSong(name)) {
        const bool several = songs.size() > 2;
        songs.removeAll(m_editor.song().songName);
        tellShared(songs, several);
        return true;
    }
    dao::History(*m_catalogue.CatalogueDb).ofSitting(m_editor.sitting());
    m_files.retire(name, m_editor.recordId);
    m_editor.setPictureChanged();
    m_editor.setRecordDirty();
    m_editor.setText(pictureField(m_slot), {});
    return true;
}

void PictureLink::tellShared(const QStringList &names, bool several)
{
    m_desktop.MessageBox(u"This picture is also linked to the following Song"_s +
                             (several ? u"s"_s : QString()) + u": "_s + names.join(u", "_s) +
                             u"\rTherefore you can't delete it.  To remove this picture from the current "
                             "Song only, blank out the blue filename shown below the picture button on the "
                             "previous Edit screen, then save the record."_s,
                         u"Picture not deleted because it is assigned to another Song."_s, Icon::Exclamation);
}

void PictureLink::save()
{
    // An empty box, or a file that could not be shown, leaves the link as it is.
    if (m_box.isNull())
        return;
    const Hourglass hourglass(m_desktop);
    const QString name = asLinkName(m_name);
    const bool changed = name != m_editor.file(m_slot);
    // Written first: a link is only changed to a file that is there.
    if (m_replaced || (changed && !name.isEmpty() && !m_files.exists(name)))
        m_files.save(name, m_box);
    if (changed) {
        m_editor.setText(pictureField(m_slot), name);
        m_editor.setPictureChanged();
    }
    if (changed || m_replaced)
        m_editor.setRecordDirty();
    m_replaced = false;
}

} // namespace quaverly
