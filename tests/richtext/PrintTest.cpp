// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/richtext/PrintRichText.h"
#include "platform/richtext/RichText.h"
#include "platform/store/DaoError.h"
#include "support/QtPrinters.h"

#include <QBuffer>
#include <QImage>
#include <QPageRanges>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace richtext::test {

namespace {

QByteArray printed(const QTextDocument &document, const PrintOptions &options = {},
                   const QPageRanges &ranges = {})
{
    QBuffer paper;
    paper.open(QIODevice::WriteOnly);
    {
        QPdfWriter printer(&paper);
        printer.setPageRanges(ranges);
        PrintRichText(document, printer, options);
    }
    return paper.data();
}

qsizetype pagesOf(const QString &text, const PrintOptions &options = {}, const QPageRanges &ranges = {})
{
    QTextDocument document;
    document.setPlainText(text);
    return printed(document, options, ranges).count("/Type /Page\n");
}

} // namespace

TEST(PrintRichText, EndsPagesWhereTheyAreFullOrBroken)
{
    for (const auto &[text, pages] : {std::pair{u""_s, 1},
                                      {u"a"_s, 1},
                                      {u"a\f"_s, 1},
                                      {u"a\fb"_s, 2},
                                      {u"a\n\fb\n\fc\n"_s, 3},
                                      {u"\fa\f\fb"_s, 4}})
        EXPECT_EQ(pagesOf(text), pages) << text.toStdString();
    const QString rows = u"one\n"_s.repeated(200);
    const qsizetype all = pagesOf(rows + u"last\f"_s);
    EXPECT_GE(all, 3);
    EXPECT_GT(pagesOf(rows, {.margins = {.top = 6000, .bottom = 6000}}), all);
    EXPECT_EQ(pagesOf(rows, {.mostPages = 2}), 2);
    EXPECT_EQ(pagesOf(u"a\fb\fc\fd"_s, {}, QPageRanges::fromString(u"2-3"_s)), 2);
    EXPECT_THROW(pagesOf(rows, {.margins = {.left = 20'000}}), dao::DaoError);
}

TEST(PrintRichText, PrintsPicturesAsWell)
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(u"above\f"_s);
    QImage picture(43, 31, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(insertPicture(cursor, picture, picture.size()));
    EXPECT_TRUE(printed(document).contains("/Width 43\n"));
}

} // namespace richtext::test
