// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "pictures/Pics3.h"
#include "pictures/PictureCommands.h"
#include "pictures/PictureForm.h"
#include "pictures/PictureHousekeeping.h"
#include "pictures/TestPictures.h"
#include "songlist/DisplayedSet.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace quaverly::test {

/** A catalogue with its folders of pictures, a record editor's texts, and the picture commands over both. */
class PicturesTest : public ::testing::Test
{
protected:
    PicturesTest();
    ~PicturesTest() override;

    [[nodiscard]] QString pictures(const QString &name = {}) const;
    [[nodiscard]] QString deleted(const QString &name = {}) const;
    void writePicture(const QString &name, const QColor &color) const;
    /** A song whose slots hold these names, and which the displayed set shows. */
    qint64 song(const QString &name, const QStringList &files);
    void display(const QString &sql = QStringLiteral("Select * from  tblContacts Order By RecordID"));
    /** The editor shows that song. */
    void edit(qint64 recordId);
    [[nodiscard]] PictureEditor editor();

    /** The screen on that slot. */
    PictureForm &openSlot(int slot);
    [[nodiscard]] PictureForm &form() { return *m_commands.form(); }
    [[nodiscard]] bool isClosed() const { return m_commands.form() == nullptr; }
    void press(const QString &button) { click(form(), button); }
    [[nodiscard]] bool isShown(const QString &button);
    /** Colour of the picture's top left corner; an invalid one for an empty box. */
    [[nodiscard]] QColor corner();
    [[nodiscard]] static QColor cornerOf(const QString &path);

    StoreFixture m_store;
    ScriptedDesktop m_desktop;
    Options m_options;
    DisplayedSet m_set{m_store.catalogue(), m_store.settings(), m_desktop};
    FakeMainScreen m_screen{&m_set};
    QWidget m_nameEdit;
    QMap<QString, QString> m_texts;
    qint64 m_recordId = 0;
    bool m_pictureChanged = false;
    bool m_recordDirty = false;
    int m_focused = 0;
    PictureCommands m_commands;
    PictureHousekeeping m_housekeeping{m_desktop, m_store.catalogue()};
};

} // namespace quaverly::test
