// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Icons.h"
#include "support/QtPrinters.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPalette>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace quaverly;

namespace {

QImage imageOf(const QIcon &icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(48, 48), mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/** The colour of the pixels that the drawing covers wholly; no colour when there are none or several. */
QColor inkOf(const QImage &image)
{
    QSet<QRgb> inks;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 0xFF)
                inks.insert(image.pixel(x, y));
        }
    }
    return inks.size() == 1 ? QColor(*inks.cbegin()) : QColor();
}

class TheIcons : public ::testing::Test
{
protected:
    ~TheIcons() override { QApplication::setPalette(m_before); }

    static void setTexts(const QColor &text, const QColor &disabled)
    {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::ButtonText, text);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabled);
        QApplication::setPalette(palette);
    }

    QPalette m_before = QApplication::palette();
};

TEST_F(TheIcons, EachIsADrawingOfItsOwnInTheTextColour)
{
    ASSERT_FALSE(icon(u"add"_s).isNull());
    const QStringList files = QDir(u":/icons"_s).entryList({u"*.svg"_s});
    QList<QImage> seen;
    for (const QString &file : files) {
        const QString name = file.chopped(4);
        const QIcon drawing = icon(name);
        setTexts(Qt::blue, Qt::gray);
        const QImage blue = imageOf(drawing);
        EXPECT_EQ(inkOf(blue), QColor(Qt::blue)) << name.toStdString();
        EXPECT_EQ(inkOf(imageOf(drawing, QIcon::Disabled)), QColor(Qt::gray)) << name.toStdString();
        setTexts(Qt::white, Qt::gray);
        EXPECT_EQ(inkOf(imageOf(drawing)), QColor(Qt::white)) << name.toStdString();
        EXPECT_FALSE(seen.contains(blue)) << name.toStdString();
        seen.append(blue);
    }
    EXPECT_TRUE(icon(u"no such icon"_s).isNull());
}

} // namespace
