// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RichText.h"
#include "platform/store/DaoError.h"
#include "support/QtPrinters.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace richtext::test {

namespace {

QByteArray image(const char *format, QSize size)
{
    QImage drawn(size, QImage::Format_RGB32);
    drawn.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(drawn.save(&buffer, format)) << format;
    return bytes;
}

} // namespace

TEST(WriteRtf, FormatsComeBackAsTheyWere)
{
    QTextDocument document, reread;
    document.setHtml(
        u"<p align=right style='margin-left:30px'><b>bold</b> <i>it</i> <u>ul</u> <s>s</s> "
        "<span style='font-family:\"Tïmes; New\";font-size:7.5pt;color:#123456;background:#ff0'>x</span>"
        "</p><p>{\\}\ttab é夜𐌲&nbsp;<br>line</p><p></p>"_s);
    const QByteArray first = toRtf(document, {.marginTwips = 720});
    EXPECT_TRUE(first.contains("\\u233\\'3f"));
    EXPECT_TRUE(first.contains("\\margl720\\margr720\\margt720\\margb720"));
    const Reading reading = readRtf(first, reread);
    EXPECT_TRUE(reading.isWhole && reading.keepsAll);
    EXPECT_EQ(reread.toRawText(), document.toRawText());
    EXPECT_EQ(toRtf(reread), toRtf(document));
    const QTextCharFormat format = reread.find(u"x"_s).charFormat();
    EXPECT_EQ(format.fontFamilies().toStringList(), QStringList{u"Tïmes New"_s});
    EXPECT_EQ(format.fontPointSize(), 7.5);
    EXPECT_EQ(format.foreground().color(), QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(format.background().color(), QColor(0xFF, 0xFF, 0));
    EXPECT_EQ(reread.begin().blockFormat().leftMargin(), 30);
}

TEST(WriteRtf, PicturesKeepTheirBytes)
{
    for (const char *format : {"JPG", "PNG"}) {
        const QByteArray bytes = image(format, {60, 40});
        QTextDocument document, reread;
        QTextCursor cursor(&document);
        ASSERT_TRUE(insertPicture(cursor, bytes, {30, 100})) << format;
        ASSERT_TRUE(insertPicture(cursor, bytes, {30, 100})) << format;
        const QByteArray rtf = toRtf(document);
        EXPECT_TRUE(QByteArray(rtf).replace("\r\n", "").contains(bytes.toHex())) << format;
        EXPECT_TRUE(readRtf(rtf, reread).isWhole) << format;
        EXPECT_EQ(toRtf(reread), rtf) << format;
        const QTextImageFormat shown = reread.find(QString(QChar(0xFFFC))).charFormat().toImageFormat();
        EXPECT_EQ(QSizeF(shown.width(), shown.height()), QSizeF(30, 20)) << format;
    }
    QTextDocument document, reread;
    QTextCursor cursor(&document);
    EXPECT_FALSE(insertPicture(cursor, "no picture", {100, 100}));
    EXPECT_FALSE(insertPicture(cursor, image("PNG", {8, 8}).first(40), {100, 100}));
    EXPECT_TRUE(document.isEmpty());
    EXPECT_TRUE(insertPicture(cursor, image("BMP", {60, 40}), {600, 600}));
    EXPECT_TRUE(toRtf(document).contains("\\pngblip\\picw60\\pich40"));
    // What can't be drawn is kept for those who can.
    const QByteArray metafile =
        "{\\rtf1 a{\\pict\\wmetafile8\\picw100\\picwgoal1440\\pichgoal720 0100090000}b}";
    EXPECT_TRUE(readRtf(metafile, reread).isWhole);
    EXPECT_TRUE(toRtf(reread).contains("\\wmetafile8\\picw100\\picwgoal1440\\pichgoal720\r\n0100090000}"));
}

TEST(WriteRtf, WhatCantBeWrittenIsAnError)
{
    const QTemporaryDir folder;
    EXPECT_THROW(saveRtf(QTextDocument(), folder.filePath(u"no/x.rtf"_s)), dao::DaoError);
    QBuffer closed;
    EXPECT_THROW(writeRtf(QTextDocument(), closed), dao::DaoError);
}

} // namespace richtext::test
