// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DuplicateQueries.h"
#include "pictures/PicturesFixture.h"
#include "support/Limits.h"

using namespace Qt::StringLiterals;

namespace quaverly::test {

using PictureFormTest = PicturesTest;

TEST_F(PictureFormTest, PastesFromTheEditorUnderAName)
{
    pasteFromEditor();
    EXPECT_TRUE(isClosed()) << "without a picture";
    m_desktop.clipboard = plain(200, 100, Qt::red);
    for (const QString &name : {u""_s, u"   "_s, u"AC/DC"_s, u"a\"b"_s, u"what?"_s}) {
        m_desktop.willType(name);
        pasteFromEditor();
        EXPECT_TRUE(isClosed()) << name.toStdString();
    }
    m_texts = {{u"Artist"_s, u" Abba "_s}, {u"SongName"_s, u"Tiger"_s}, {u"AlbumName"_s, u"Arrival"_s}};
    m_desktop.willType(u" Tiger cover "_s);
    m_commands.showPictureMenu(editor(), 3, {}, &m_nameEdit);
    pasteFromEditor();
    EXPECT_EQ(m_desktop.lastCall().offered, u"Abba-Tiger-Arrival"_s);
    EXPECT_TRUE(m_desktop.lastCall().text.contains(u"(like Abbey Road Cover).\r\rThis name"_s));
    EXPECT_TRUE(m_desktop.lastCall().text.endsWith(u"   *  \\  /  :  ?  |  \"  <  >"_s));
    EXPECT_EQ(form().windowTitle(), u"Tiger cover.jpg"_s);
    EXPECT_TRUE(m_commands.PastingPicture());
    EXPECT_FALSE(QFile::exists(pictures(u"Tiger cover.jpg"_s))) << "before it is closed";
    key(&form(), Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_FALSE(m_commands.PastingPicture());
    const QImage stored(pictures(u"Tiger cover.jpg"_s));
    EXPECT_EQ(stored.size(), PictureBoxSize);
    EXPECT_TRUE(isNear(stored.pixelColor(1020, 500), Qt::red));
    EXPECT_TRUE(isNear(stored.pixelColor(4, 520), Qt::white));
    EXPECT_EQ(m_texts.value(u"PicturePath3"_s), u"Tiger cover.jpg"_s);
    EXPECT_TRUE(m_pictureChanged && m_recordDirty);
    EXPECT_EQ(QDir(pictures()).entryList(QDir::Files).size(), 1) << "nothing temporary is left";
}

TEST_F(PictureFormTest, PastesOverAPictureOfThatNameAndOffersItOnlyWithAPicture)
{
    writePicture(u"../elsewhere"_s, Qt::blue);
    QFile::link(m_store.path(u"elsewhere"_s), pictures(u"a.jpg"_s));
    openFile(1, u"a.jpg"_s);
    EXPECT_FALSE(isShown(u"cmdClipboardPaste"_s));
    press(u"cmdCancel"_s);
    m_desktop.clipboard = plain(4, 3, Qt::red);
    openSlot(1);
    m_desktop.willType(u"A.JPG"_s).willType(u"a"_s);
    press(u"cmdClipboardPaste"_s);
    EXPECT_EQ(form().windowTitle(), u"A.JPG"_s) << "an ending in any case is one";
    press(u"cmdClipboardPaste"_s);
    EXPECT_TRUE(m_desktop.lastCall().text.contains(u"(like Joe's Song)"_s));
    form().close();
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(isNear(cornerOf(pictures(u"a.jpg"_s)), Qt::red));
    EXPECT_TRUE(isNear(cornerOf(m_store.path(u"elsewhere"_s)), Qt::blue)) << "the link itself was replaced";
    EXPECT_TRUE(m_recordDirty);
    EXPECT_FALSE(m_pictureChanged) << "the link is the same";
}

TEST_F(PictureFormTest, OnlyLooksWhenNothingWasChanged)
{
    writePicture(u"a.jpg"_s, Qt::blue);
    const QByteArray before = bytesOf(pictures(u"a.jpg"_s));
    openFile(1, u"a.jpg"_s);
    EXPECT_TRUE(isNear(corner(), Qt::blue));
    press(u"cmdClose"_s);
    EXPECT_EQ(bytesOf(pictures(u"a.jpg"_s)), before);
    EXPECT_FALSE(m_recordDirty || m_pictureChanged);
    // A picture of another format becomes one of this program's.
    writeFile(pictures(u"b.png"_s), fileOf(plain(40, 30, Qt::green), "PNG"));
    openFile(1, u"b.png"_s);
    press(u"cmdClose"_s);
    EXPECT_EQ(m_texts.value(u"PicturePath1"_s), u"b.jpg"_s);
    EXPECT_TRUE(isNear(cornerOf(pictures(u"b.jpg"_s)), Qt::green));
    EXPECT_TRUE(m_recordDirty && m_pictureChanged);
}

TEST_F(PictureFormTest, LoadsFilesFromElsewhereAndLinksStoredOnes)
{
    const QString outside = m_store.path(u"Front: \"one\".png"_s);
    writeFile(outside, fileOf(plain(40, 30, Qt::green), "PNG"));
    writePicture(u"Front one.jpg"_s, Qt::blue);
    writePicture(u"other.jpg"_s, Qt::blue);
    m_texts = {{u"PicturePath2"_s, u"other.jpg"_s}};
    openSlot(1);
    EXPECT_TRUE(isShown(u"cmdNext"_s) && isShown(u"cmdPrev"_s));
    m_desktop.willOpen(std::nullopt).willOpen(outside);
    press(u"cmdLoadFile"_s);
    EXPECT_TRUE(isShown(u"cmdNext"_s)) << "after a cancel";
    press(u"cmdLoadFile"_s);
    EXPECT_EQ(m_desktop.lastCall().title, u"Load Picture"_s);
    EXPECT_EQ(m_desktop.lastCall().startFolder, pictures());
    EXPECT_FALSE(isShown(u"cmdNext"_s) || isShown(u"cmdPrev"_s));
    press(u"cmdClose"_s);
    EXPECT_EQ(m_texts.value(u"PicturePath1"_s), u"Front one.jpg"_s);
    EXPECT_TRUE(isNear(cornerOf(pictures(u"Front one.jpg"_s)), Qt::green)) << "the file that was chosen";

    const QByteArray before = bytesOf(pictures(u"other.jpg"_s));
    openSlot(3);
    m_desktop.willOpen(pictures(u"other.jpg"_s));
    press(u"cmdLoadFile"_s);
    key(form().focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(isClosed()) << "saved, not asked for a file again";
    EXPECT_EQ(m_texts.value(u"PicturePath3"_s), u"other.jpg"_s);
    EXPECT_EQ(bytesOf(pictures(u"other.jpg"_s)), before) << "shared, not written again";
}

TEST_F(PictureFormTest, RefusesAFileThatIsNoPicture)
{
    writeFile(pictures(u"a.jpg"_s), bomb(60000, 60000));
    writeFile(pictures(u"b.jpg"_s), {});
    const QString half = m_store.path(u"half.jpg"_s);
    writeFile(half, fileOf(colourful(800, 600), "JPG").first(3000));
    openSlot(1);
    m_desktop.willOpen(half).willAnswer(Answer::No, u"This picture is damaged"_s);
    press(u"cmdLoadFile"_s);
    EXPECT_EQ(m_desktop.lastCall().defaultAnswer, Answer::No);
    press(u"cmdClose"_s);
    EXPECT_FALSE(m_recordDirty || m_pictureChanged) << "only when the user wants it";
    openSlot(2);
    m_desktop.willOpen(half).willAnswer(Answer::Yes);
    press(u"cmdLoadFile"_s);
    press(u"cmdClose"_s);
    EXPECT_EQ(m_texts.value(u"PicturePath2"_s), u"half.jpg"_s);
    m_recordDirty = m_pictureChanged = false;

    m_texts = {{u"PicturePath1"_s, u"a.jpg"_s}};
    m_desktop.willSee(u"Invalid picture.  The following"_s)
        .willOpen(pictures(u"b.jpg"_s))
        .willSee(u"Invalid"_s);
    openSlot(1);
    EXPECT_EQ(m_desktop.lastCall().title, u"Invalid Picture"_s);
    press(u"cmdLoadFile"_s);
    EXPECT_EQ(form().windowTitle(), u"a.jpg"_s) << "as it was";
    press(u"cmdClose"_s);
    EXPECT_FALSE(m_recordDirty || m_pictureChanged);
    m_texts[u"PicturePath1"_s] = u"../options.ini"_s;
    writeFile(m_store.path(u"options.ini"_s), fileOf(plain(4, 3, Qt::red), "PNG"));
    m_desktop.willSee(u"The file:\r"_s);
    openSlot(1);
    EXPECT_EQ(m_desktop.lastCall().title, u"File not found.  Link broken."_s) << "a link out of the folder";
    EXPECT_FALSE(corner().isValid());

    m_desktop.willSee(u"Invalid picture."_s);
    PictureLink pasted(m_desktop, m_store.catalogue(), editor(), {.slot = 1, .pasteName = u"new.jpg"_s});
    pasted.open();
    EXPECT_FALSE(pasted.PictureReplaced()) << "what was on the clipboard cannot be read";
}

TEST_F(PictureFormTest, WalksOverTheSlotsWhoseFilesAreThere)
{
    writePicture(u"red.jpg"_s, Qt::red);
    writePicture(u"blue.jpg"_s, Qt::blue);
    m_texts = {{u"PicturePath2"_s, u"red.jpg"_s},
               {u"PicturePath4"_s, u"gone.jpg"_s},
               {u"PicturePath7"_s, u"blue.jpg"_s}};
    openSlot(2);
    press(u"cmdPrev"_s);
    EXPECT_EQ(form().windowTitle(), u"red.jpg"_s);
    press(u"cmdNext"_s);
    EXPECT_TRUE(isNear(corner(), Qt::blue));
    press(u"cmdNext"_s);
    EXPECT_EQ(form().windowTitle(), u"blue.jpg"_s) << "no wrap";
    press(u"cmdClose"_s);
    EXPECT_FALSE(m_recordDirty);
    m_texts.remove(u"PicturePath7"_s);
    m_texts.remove(u"PicturePath4"_s);
    openSlot(2);
    EXPECT_FALSE(isShown(u"cmdNext"_s));
}

TEST_F(PictureFormTest, DeletesAPictureThatNoOtherSongHas)
{
    writePicture(u"a.jpg"_s, Qt::red);
    edit(song(u"Tiger"_s, {u"a.jpg"_s}));
    openSlot(1);
    m_desktop.willAnswer(Answer::No, u"delete this picture from Quaverly?"_s).willAnswer(Answer::Yes);
    press(u"cmdDelete"_s);
    EXPECT_EQ(m_desktop.lastCall().defaultAnswer, Answer::No);
    press(u"cmdDelete"_s);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(isNear(cornerOf(deleted(u"a.jpg"_s)), Qt::red));
    EXPECT_EQ(m_texts.value(u"PicturePath1"_s), QString());
    EXPECT_TRUE(m_recordDirty && m_pictureChanged);

    writePicture(u"a.jpg"_s, Qt::blue);
    edit(m_recordId);
    openSlot(1);
    m_desktop.willAnswer(Answer::Yes);
    press(u"cmdDelete"_s);
    EXPECT_FALSE(QFile::exists(pictures(u"a.jpg"_s)));
    EXPECT_TRUE(isNear(cornerOf(deleted(u"a.jpg"_s)), Qt::red)) << "the older one stays";

    m_desktop.willSee(u"Picture not yet saved in Quaverly, so you can't delete it."_s);
    openSlot(5);
    press(u"cmdDelete"_s);
    EXPECT_FALSE(isClosed());
}

TEST_F(PictureFormTest, KeepsAPictureThatOthersShow)
{
    const QString name = u"Say \"hi\".jpg"_s;
    writePicture(name, Qt::red);
    const qint64 tiger = song(u"Tiger"_s, {name});
    song(u"Waterloo"_s, {{}, {}, name});
    struct Case
    {
        const char *what;
        std::function<void()> prepare;
        QString part;
    };
    const Case cases[] = {
        {"two songs", [] {}, u"following Song: Waterloo\rTherefore"_s},
        {"three songs", [&] { song(u"Angel"_s, {name}); }, u"following Songs: Angel, Waterloo\rTherefore"_s},
        {"two slots of one song",
         [&] {
             m_store.db().Execute(u"Delete * from tblContacts Where SongName <> \"Tiger\""_s);
             m_texts[u"PicturePath2"_s] = name;
         },
         u"following Song: \rTherefore"_s},
        {"a new song that is not stored",
         [&] {
             m_recordId = 0;
             m_texts = {{u"PicturePath1"_s, name}, {u"SongName"_s, u"New"_s}};
         },
         u"following Song: Tiger\r"_s}};
    edit(tiger);
    for (const Case &c : cases) {
        c.prepare();
        openSlot(1);
        m_desktop.willAnswer(Answer::Yes).willSee(c.part);
        press(u"cmdDelete"_s);
        EXPECT_TRUE(isClosed()) << c.what;
        EXPECT_TRUE(QFile::exists(pictures(name))) << c.what;
        EXPECT_EQ(m_texts.value(u"PicturePath1"_s), name) << c.what;
    }
}

TEST_F(PictureFormTest, OnlyShowsPicturesInAViewOfDuplicates)
{
    writePicture(u"a.png"_s, Qt::red);
    m_texts[u"PicturePath1"_s] = u"a.png"_s;
    m_desktop.clipboard = plain(4, 3, Qt::red);
    ensureDuplicateQueries(m_store.db());
    display(u"qryDuplicateSongs"_s);
    ASSERT_TRUE(m_set.isDuplicateView());
    openSlot(1);
    for (const auto *button : form().findChildren<QPushButton *>())
        EXPECT_EQ(button->isEnabled(), button->objectName() == u"cmdCancel"_s ||
                                           button->objectName() == u"cmdPrev"_s ||
                                           button->objectName() == u"cmdNext"_s)
            << button->objectName().toStdString();
    child<QPushButton>(form(), u"cmdCancel"_s)->clearFocus();
    form().close();
    EXPECT_FALSE(m_recordDirty || QFile::exists(pictures(u"a.jpg"_s)));
}

TEST_F(PictureFormTest, LosesNothingWhenThePictureCannotBeWritten)
{
    writePicture(u"a.jpg"_s, Qt::blue);
    m_texts[u"PicturePath1"_s] = u"a.jpg"_s;
    m_desktop.clipboard = colourful(800, 600);
    openSlot(1);
    m_desktop.willType(u"a"_s);
    press(u"cmdClipboardPaste"_s);
    {
        const FullDisk full(500);
        m_desktop.willSee(u"full"_s);
        press(u"cmdClose"_s);
    }
    EXPECT_FALSE(isClosed()) << "the picture is still there to be saved";
    EXPECT_EQ(QDir(pictures()).entryList(QDir::Files), QStringList{u"a.jpg"_s}) << "nothing half is left";
    EXPECT_TRUE(isNear(cornerOf(pictures(u"a.jpg"_s)), Qt::blue));
    {
        const LockedFolder locked(pictures(), m_store.folder());
        m_desktop.willSee(u"(Error 75)"_s);
        press(u"cmdClose"_s);
    }
    EXPECT_TRUE(isNear(cornerOf(pictures(u"a.jpg"_s)), Qt::blue));
    QDir(pictures()).removeRecursively();
    writeFile(m_store.path(u"Pictures"_s), "a file");
    m_desktop.willSee(u"(Error 75)"_s).willSee(u"(Error 75)"_s);
    press(u"cmdClose"_s);
    press(u"cmdLoadFile"_s);
    EXPECT_FALSE(m_recordDirty || m_pictureChanged);
    key(&form(), Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
}

} // namespace quaverly::test
