// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DisplayText.h"
#include "desktop/FileFilter.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace quaverly {

void PrintTo(const FileFilter &filter, std::ostream *out)
{
    PrintTo(filter.description + u" -> "_s + filter.patterns.join(u' '), out);
}

namespace {

TEST(FileFilters, ReadFromTheBarForm)
{
    struct Case
    {
        QString filter;
        QList<FileFilter> expected;
        QString extension;
    };
    const FileFilter all = {u"All Files (*.*)"_s, {u"*"_s}};
    const std::vector<Case> cases = {
        {u"Music files (*.mp3;*.m4a)|*.mp3;*.m4a|All Files (*.*)|*.*"_s,
         {{u"Music files (*.mp3;*.m4a)"_s, {u"*.mp3"_s, u"*.m4a"_s}}, all},
         u"mp3"_s},
        {u"All Files (*.*)|*.*"_s, {all}, QString()},
        {u"A|*.a; *.b ;;"_s, {{u"A"_s, {u"*.a"_s, u"*.b"_s}}}, u"a"_s},
        {u"No pattern"_s, {{u"No pattern"_s, {u"*"_s}}}, QString()},
        {u"|*.x"_s, {{u"*.x"_s, {u"*.x"_s}}}, u"x"_s},
        {u"A|*.a|"_s, {{u"A"_s, {u"*.a"_s}}}, u"a"_s},
        {u"Numbered|*.a?"_s, {{u"Numbered"_s, {u"*.a?"_s}}}, QString()},
        {QString(), {{u"All files (*.*)"_s, {u"*"_s}}}, QString()},
    };
    for (const Case &one : cases) {
        EXPECT_EQ(parseFilter(one.filter), one.expected) << one.filter.toStdString();
        const QString ending = one.extension.isEmpty() ? QString() : u'.' + one.extension;
        EXPECT_EQ(withEnding(u"Best of Vol. 2"_s, one.expected, 0), u"Best of Vol. 2"_s + ending);
    }
    const QList<FileFilter> filters =
        parseFilter(u"All Files (*.*)|*.*|csv (*.csv)|*.csv|m3u (*.m3u)|*.m3u"_s);
    EXPECT_EQ(withEnding(u"Songs"_s, filters, 0), u"Songs.csv"_s);
    EXPECT_EQ(withEnding(u"Songs."_s, filters, 2), u"Songs.m3u"_s);
    EXPECT_EQ(withEnding(u"Songs.txt"_s, filters, 1), u"Songs.txt"_s);
}

TEST(DisplayTexts, EveryLineEndIsOneBreakAndLongWordsLoseNothing)
{
    EXPECT_EQ(displayText(u"a\rb\r\nc\nd\r\r\ne\n\nf"_s), u"a\nb\nc\nd\n\ne\n\nf"_s);
    EXPECT_EQ(displayText(u"   *  \\  /  :  & <b>"_s), u"   *  \\  /  :  & <b>"_s);
    EXPECT_EQ(displayText(u"/short/path.mp3"_s), u"/short/path.mp3"_s);

    const QString text = u"File /home/anna/Music/"_s + QString(100, u'x') + u"/y.mp3 not found."_s;
    QString shown = displayText(text);
    EXPECT_TRUE(shown.contains(u"/\u200Bhome/\u200B"_s));
    EXPECT_TRUE(shown.contains(u"x\u200Bx"_s));
    EXPECT_EQ(shown.remove(u'\u200B'), text);
    const QString notes = u"x"_s + u"\U0001F3B5"_s.repeated(60);
    for (const QString &piece : displayText(notes).split(u'\u200B'))
        EXPECT_EQ(piece, QString::fromUtf8(piece.toUtf8())) << "half a character";
}

} // namespace
} // namespace quaverly
