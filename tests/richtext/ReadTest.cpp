// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/RichText.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace richtext::test {

namespace {

/** The text with its formats in front of each piece, "[12 b red]", and the way each paragraph stands. */
QString described(const QTextDocument &document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat shape = block.blockFormat();
        if (shape.alignment() & Qt::AlignHCenter)
            text += u"<centre>"_s;
        if (shape.leftMargin() != 0)
            text += u"<left %1>"_s.arg(shape.leftMargin());
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            text += u'[' + QString::number(format.fontPointSize());
            text += format.fontWeight() > QFont::Normal ? u" b"_s : QString();
            text += format.fontItalic() ? u" i"_s : QString();
            text += format.fontUnderline() ? u" u"_s : QString();
            text += format.fontStrikeOut() ? u" s"_s : QString();
            text += format.verticalAlignment() == QTextCharFormat::AlignSuperScript ? u" ^"_s : QString();
            if (format.foreground().style() != Qt::NoBrush)
                text += u' ' + format.foreground().color().name();
            text += format.isImageFormat()
                        ? u" %1x%2"_s.arg(format.toImageFormat().width()).arg(format.toImageFormat().height())
                        : QString();
            text += u']' + it.fragment().text();
        }
        text += u'/';
    }
    return text.chopped(1).replace(QChar(PageBreak), u'^').replace(QChar(0x2028), u'|');
}

struct Case
{
    const char *name;
    QByteArray rtf;
    QString expected;
};

QString plain(const QByteArray &rtf)
{
    QTextDocument document;
    static_cast<void>(readRtf(rtf, document));
    return document.toPlainText();
}

} // namespace

TEST(ReadRtf, FormatsAndParagraphs)
{
    const Case cases[] = {
        {"toggles", "{\\rtf1 \\b a\\i b\\b0 c\\plain d}", u"[12 b]a[12 b i]b[12 i]c[12]d"_s},
        {"groups give back", "{\\rtf1\\fs20 a{\\ul b{\\strike c}}d\\ulnone\\fs0}",
         u"[10]a[10 u]b[10 u s]c[10]d"_s},
        {"colours",
         "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}a\\cf1 b\\cf9 c\\cf2 d}",
         u"[12]a[12 #ff0000]b[12]c[12 #0000ff]d"_s},
        {"raised", "{\\rtf1 x\\super 2\\nosupersub y{\\up6 3}}", u"[12]x[12 ^]2[12]y[12 ^]3"_s},
        {"paragraphs", "{\\rtf1\\pard\\qc a\\par b\\par\\pard\\li300 c\\line d\\par}",
         u"<centre>[12]a/<centre>[12]b/<left 20>[12]c|d"_s},
        {"pages", "{\\rtf1 a\\par\\page b\\par\\pard\\pagebb c}", u"[12]a/[12]^b/[12]^c"_s},
        {"line ends", "{\\rtf1 a\r\nb\\\nc\\par\r\n\\par}", u"[12]ab/[12]c/"_s},
    };
    for (const Case &each : cases) {
        QTextDocument document;
        const Reading reading = readRtf(each.rtf, document);
        EXPECT_TRUE(reading.isRtf && reading.isWhole && reading.keepsAll) << each.name;
        EXPECT_EQ(described(document), each.expected) << each.name;
    }
}

TEST(ReadRtf, EveryWayToWriteACharacter)
{
    const QByteArray fonts =
        "{\\rtf1\\ansicpg1251{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset128 B;}{\\f2\\fcharset1 C;}"
        "{\\f3\\fcharset2 Symbol;}{\\f4\\cpg65001 D;}{\\f5\\cpg4711 E;}}\\f0 ";
    const Case cases[] = {
        {"western", fonts + "\\'e9\\'80}", u"é€"_s},
        {"Japanese, second bytes bare or not", fonts + "\\f1\\'83\\'6f\\'81[\\'83W}", u"バージ"_s},
        {"the document's own", fonts + "\\f2\\'cf}", u"П"_s},
        {"symbols", fonts + "\\f3\\'b7}", u"•"_s},
        {"UTF-8, raw", fonts + "\\f4 \xE5\xA4\x9C}", u"夜"_s},
        {"an unknown code page is western", fonts + "\\f5\\'e9}", u"é"_s},
        {"a Mac's", "{\\rtf1\\mac \\'8e}", u"é"_s},
        {"Unicode and what is for others", "{\\rtf1\\u233?\\u233\\'e9{\\uc2\\u22812\\'96\\'e9}\\uc0\\u233 x}",
         u"éé夜éx"_s},
        {"pairs", "{\\rtf1\\uc0\\u-10228\\u-9204}", QString::fromUcs4(U"\U0001300C")},
        {"half a pair", "{\\rtf1\\uc0\\u-10188 x}", u"\uFFFDx"_s},
        {"the better of two", "{\\rtf1{\\upr{ansi}{\\*\\ud{\\uc0\\u1055}}}}", u"П"_s},
        {"words", "{\\rtf1 a\\emdash b\\ldblquote\\~\\_\\{\\}\\\\}", u"a—b“\u00A0‑{}\\"_s},
    };
    for (const Case &each : cases)
        EXPECT_EQ(plain(each.rtf).replace(QChar(u' '), QChar(0xA0)),
                  QString(each.expected).replace(QChar(u' '), QChar(0xA0)))
            << each.name;
}

TEST(ReadRtf, WhatIsNotTextIsLeftOut)
{
    struct Left
    {
        const char *rtf;
        bool keepsAll;
    };
    const Left cases[] = {
        {"{\\rtf1{\\stylesheet{\\s1 No;}}{\\info{\\title No}}{\\*\\generator No;}a{\\*\\docvar No{No}}b}",
         true},
        {"{\\rtf1 a{\\*\\xyz No{No}}b}", false},
        {"{\\rtf1{\\*\\pn\\pnlvlbody{\\pntxta No}}ab\\par}", false},
        {"{\\rtf1\\ls1 ab\\par}", false},
        {"{\\rtf1 a\\chpgn b}", false},
        {"{\\rtf1{\\footnote a}{\\*\\do\\dobxpage{\\dptxbxtext b}}}", false},
        {"{\\rtf1{\\header No\\par}ab}", false},
        {"{\\rtf1 a{\\field{\\*\\fldinst No}{\\fldrslt b}}}", false},
        {"{\\rtf1 a{\\v No}b}", false},
        {"{\\rtf1 a\\bin2 Nob}", true},
        {"{\\rtf1 a\\unknown123 b}", true},
        {"{\\rtf1{\\i0\\b0\\*\\cs7\\f0 a}\\*\\xyz b}", true},
        {"{\\rtf1{\\*\\listtext a}\\ls1{\\*\\pn{\\pntxta No}}b\\par\\pard\\par}", true},
    };
    for (const Left &each : cases) {
        QTextDocument document;
        EXPECT_EQ(readRtf(QByteArray(each.rtf), document).keepsAll, each.keepsAll) << each.rtf;
        EXPECT_EQ(document.toPlainText().remove(u'o').trimmed(), u"ab"_s) << each.rtf;
    }
    QTextDocument table;
    EXPECT_FALSE(readRtf(QByteArray("{\\rtf1\\trowd\\intbl a\\cell b\\cell\\row c}"), table).keepsAll);
    EXPECT_EQ(table.toPlainText(), u"a\tb\t\nc"_s);
}

TEST(ReadRtf, AWordProcessorsFile)
{
    QFile file(QStringLiteral(RTF_SAMPLES "word-processor.rtf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QTextDocument document;
    EXPECT_TRUE(readRtf(file.readAll(), document).isWhole);
    const QString text = described(document);
    for (const char16_t *piece :
         {u"[20 b]Bold heading/",
          u"[12 i]italic[12], [12 u]underlined[12], [12 b i]both[12], [12 #ff0000]red",
          u"[24]large[12], [12 s]struck[12], x[12 ^]2[12].",
          u"<centre>[12]Centred: Ünïcödé 夜 𐌲 “quoted” – dash/", u"]^[12]Second page",
          u"Picture: [12 80x60]\uFFFC[12] behind", u"•\t[12]one", u"a\tb", u"{ back\\slash }"})
        EXPECT_TRUE(
            text.contains(QStringView(piece)) ||
            text.contains(
                QString::fromUtf16(piece).replace(u"]^["_s, u"^"_s).replace(u"12]Second"_s, u"Second"_s)))
            << QString::fromUtf16(piece).toStdString() << " in " << text.toStdString();
}

TEST(ReadRtf, WhatIsNoRtfIsPlainText)
{
    QTextDocument document;
    EXPECT_FALSE(readRtfText(u"Été {\r\n\\b 夜"_s, document).isRtf);
    EXPECT_EQ(document.toPlainText(), u"Été {\n\\b 夜"_s);
    EXPECT_TRUE(readRtfText(u" {\\rtf1 Été 𐌲}"_s, document).isWhole);
    EXPECT_EQ(document.toPlainText(), u"Été 𐌲"_s);
    EXPECT_FALSE(readRtf(QByteArray(), document).isRtf);
    EXPECT_TRUE(document.isEmpty());
}

TEST(ReadRtf, DamagedAndEndlessFilesEnd)
{
    const auto deep = [](int groups) {
        return "{\\rtf1 " + QByteArray("{\\b ").repeated(groups) + "x" + QByteArray("}").repeated(groups) +
               " y}";
    };
    struct Damage
    {
        const char *name;
        QByteArray rtf;
        bool isWhole;
        QString text;
    };
    const Damage cases[] = {
        {"cut off", "{\\rtf1 a{\\b b", false, u"ab"_s},
        {"10,000 deep", deep(10'000), true, u"x y"_s},
        {"opened only", "{\\rtf1 a" + QByteArray("{").repeated(1'000'000), false, u"a"_s},
        {"bytes beyond the end", "{\\rtf1 a{\\pict\\pngblip\\bin2000000000 xx}b}", false, u"a"_s},
        {"a broken picture", "{\\rtf1 a{\\pict\\pngblip 89504e470d0a}b}", false, u"a\uFFFCb"_s},
        {"no picture's bytes", "{\\rtf1 a{\\pict\\pngblip}b}", true, u"ab"_s},
        {"numbers too large", "{\\rtf1\\fs99999999999\\li-99999999999\\f99999999999\\uc0\\u1000000000000 a}",
         true, u"\uCA00a"_s},
    };
    for (const Damage &each : cases) {
        QTextDocument document;
        EXPECT_EQ(readRtf(each.rtf, document).isWhole, each.isWhole) << each.name;
        EXPECT_EQ(document.toRawText(), each.text) << each.name;
    }
    QTextDocument document;
    EXPECT_FALSE(
        readRtf("{\\rtf1 " + QByteArray("\\par").repeated(MostParagraphs + 100) + "}", document).isWhole);
    EXPECT_LE(document.blockCount(), MostParagraphs + 1);
}

} // namespace richtext::test
