// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/Picture.h"
#include "pictures/PictureFiles.h"
#include "pictures/PictureNaming.h"

#include <functional>

namespace quaverly {

class Desktop;

/** The record editor as the pictures see it. Fields are those of a song. */
struct PictureEditor
{
    /** Text of the control that shows a field, and what sets it as if it had been typed. */
    std::function<QString(const QString &field)> text;
    std::function<void(const QString &field, const QString &text)> setText;
    std::function<void()> setRecordDirty;
    /** PictureChanged becomes true. */
    std::function<void()> setPictureChanged;
    /** Names what is one change of the history: the record's pictures deleted, and its next save. */
    std::function<QString()> sitting;
    /** 0 while the record is not stored. */
    qint64 recordId = 0;

    [[nodiscard]] QString file(int slot) const { return text(pictureField(slot)).trimmed(); }
    [[nodiscard]] PictureSong song() const;
};

/** How the picture screen opens. */
struct PictureOpening
{
    int slot = 1;
    /** The name under which the clipboard's picture is to be pasted; empty to show the slot's file. */
    QString pasteName;
};

/**
 * One of a song's pictures in work: which file it is linked to, and what its box shows. Nothing reaches the
 * disk or the editor before save() and remove(). Errors are dao::DaoError.
 */
class PictureLink final
{
public:
    PictureLink(Desktop &desktop, Catalogue &catalogue, PictureEditor editor, const PictureOpening &opening);

    /** Shows the slot's file, or the clipboard's picture. */
    void open();

    /** The slot in work; next and previous change it. */
    [[nodiscard]] int PictureIndex() const { return m_slot; }
    /** File name that the picture has or will have; may be empty. */
    [[nodiscard]] const QString &name() const { return m_name; }
    /** The box as it is stored; null when it is empty. */
    [[nodiscard]] const QImage &box() const { return m_box; }
    /** True while the box shows something else than the linked file. */
    [[nodiscard]] bool PictureReplaced() const { return m_replaced; }
    /** True when one of the other slots has a name, whether or not its file is there. */
    [[nodiscard]] bool hasOthers() const;

    /** To the nearest slot whose file is there; stays where it is when there is none. Saves nothing. */
    void next() { step(1); }
    void previous() { step(-1); }

    /** Asks for a file. True when it was taken. */
    bool loadFile();
    /** Asks for a name and takes the clipboard's picture. */
    void paste();

    /** Deletes the file after asking, unless other songs use it. True when the screen is to close. */
    bool remove();

    /** Writes the picture if it has to be, and links it. */
    void save();

private:
    void step(int direction);
    void showFile(const QString &path);
    void show(std::optional<Picture> picture);
    /** Asks whether what can be read of a damaged one is to be taken. */
    [[nodiscard]] bool isTaken(const Picture &picture);
    void clear();
    void takeFromClipboard(const QString &name);
    void tellShared(const QStringList &names, bool several);
    [[nodiscard]] bool isInOtherSlot(const QString &name) const;
    [[nodiscard]] bool isOfOtherSong(const QString &name) const;
    [[nodiscard]] QStringList column(const QString &sql) const;

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    PictureFiles m_files;
    PictureEditor m_editor;
    int m_slot;
    bool m_pasting;
    QString m_name;
    QImage m_box;
    bool m_replaced = false;
};

} // namespace quaverly
