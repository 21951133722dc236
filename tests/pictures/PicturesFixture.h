// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "pictures/Pics3.h"
#include "pictures/PictureBox.h"
#include "pictures/PictureCommands.h"
#include "pictures/PictureForm.h"
#include "pictures/PictureHousekeeping.h"
#include "pictures/TestPictures.h"
#include "songlist/DisplayedSet.h"
#include "support/Files.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

namespace quaverly::test {

/** A catalogue with its folders of pictures, a record editor's texts, and the picture commands over both. */
class PicturesTest : public ::testing::Test
{
protected:
    PicturesTest()
    {
        QDir().mkpath(pictures());
        m_nameEdit.show();
        display(QStringLiteral("Select * from  tblContacts Order By RecordID"));
    }
    ~PicturesTest() override
    {
        delete m_commands.form();
        m_commands.unloadPics3();
        m_set.Data1().Close();
    }

    [[nodiscard]] QString pictures(const QString &name = {}) const
    {
        return m_store.path(QStringLiteral("Pictures/")) + name;
    }
    [[nodiscard]] QString deleted(const QString &name = {}) const
    {
        return m_store.path(QStringLiteral("Deleted Pictures/")) + name;
    }
    void writePicture(const QString &name, const QColor &color) const
    {
        writeFile(pictures(name), fileOf(plain(80, 60, color), "JPG"));
    }
    /** Colour of a file's top left corner; an invalid one without a picture. */
    [[nodiscard]] static QColor cornerOf(const QString &path)
    {
        const QImage image(path);
        return image.isNull() ? QColor() : image.pixelColor(4, 4);
    }

    /** A song whose slots hold these names, and which the displayed set shows. */
    qint64 song(const QString &name, const QStringList &files)
    {
        Song made(name);
        for (int slot = 1; slot <= files.size(); ++slot)
            made.with(pictureField(slot), files.at(slot - 1));
        const qint64 id = m_store.addSong(made);
        m_set.Data1().Refresh();
        return id;
    }
    void display(const QString &sql)
    {
        m_set.Data1().setRecordSource(sql);
        m_set.Data1().Refresh();
    }
    /** The editor shows that song. */
    void edit(qint64 recordId)
    {
        m_recordId = recordId;
        m_texts[QStringLiteral("SongName")] =
            m_store.songValue(recordId, QStringLiteral("SongName")).toString();
        for (int slot = 1; slot <= PictureCount; ++slot)
            m_texts[pictureField(slot)] = m_store.songValue(recordId, pictureField(slot)).toString();
    }
    [[nodiscard]] PictureEditor editor()
    {
        return {.text = [this](const QString &field) { return m_texts.value(field); },
                .setText = [this](const QString &field, const QString &text) { m_texts[field] = text; },
                .setRecordDirty = [this] { m_recordDirty = true; },
                .setPictureChanged = [this] { m_pictureChanged = true; },
                .sitting = [] { return QString(); },
                .recordId = m_recordId};
    }

    /** The screen on that slot. */
    void openSlot(int slot) { m_commands.cmdPicture_Click(editor(), slot, &m_nameEdit); }
    void openFile(int slot, const QString &name)
    {
        m_texts[pictureField(slot)] = name;
        openSlot(slot);
    }
    void pasteFromEditor() { m_commands.mnuFilePasteImage_Click(editor(), &m_nameEdit); }
    [[nodiscard]] PictureForm &form() { return *m_commands.form(); }
    [[nodiscard]] bool isClosed() const { return m_commands.form() == nullptr; }
    void press(const QString &button) { click(form(), button); }
    [[nodiscard]] bool isShown(const QString &button)
    {
        return child<QPushButton>(form(), button)->isVisible();
    }
    /** Colour of the shown picture's top left corner; an invalid one for an empty box. */
    [[nodiscard]] QColor corner()
    {
        const QImage &shown = child<PictureBox>(form(), QStringLiteral("picResized"))->picture();
        return shown.isNull() ? QColor() : shown.pixelColor(4, 4);
    }

    StoreFixture m_store;
    ScriptedDesktop m_desktop;
    Options &m_options = m_store.options();
    DisplayedSet m_set{m_store.catalogue(), m_store.settings(), m_desktop};
    QWidget m_nameEdit;
    QMap<QString, QString> m_texts;
    qint64 m_recordId = 0;
    bool m_pictureChanged = false;
    bool m_recordDirty = false;
    int m_focused = 0;
    PictureCommands m_commands{{.services = m_store.services(m_desktop),
                                .set = m_set,
                                .nameList = &m_nameEdit,
                                .focusCmdPictures = [this] { ++m_focused; }}};
    PictureHousekeeping m_housekeeping{m_desktop, m_store.catalogue()};
};

} // namespace quaverly::test
