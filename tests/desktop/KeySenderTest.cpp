// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/KeySender.h"

#include "support/QtPrinters.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class CapsLockOn final : public KeyboardLayout
{
    [[nodiscard]] bool capsLock() const override { return true; }
};

/** A layout on which the at sign needs Control and Alt. */
class AltGrLayout final : public KeyboardLayout
{
    [[nodiscard]] quint16 keyOf(char16_t c) const override
    {
        return c == u'@' ? quint16('Q' | Control | Alt) : KeyboardLayout::keyOf(c);
    }
};

/** "65 -65": virtual key 65 down and up; "x37": extended; "u233": a Unicode character. */
QString events(const QString &keys, const KeyboardLayout &layout = KeyboardLayout())
{
    QStringList words;
    for (const KeyboardEvent &event : keyEvents(keys, layout)) {
        const bool unicode = (event.flags & KeyboardEvent::Unicode) != 0;
        QString word = (event.flags & KeyboardEvent::Up) != 0 ? u"-"_s : QString();
        word += (event.flags & KeyboardEvent::Extended) != 0 ? u"x"_s : unicode ? u"u"_s : QString();
        words.append(word + QString::number(unicode ? event.scanCode : event.virtualKey));
    }
    return words.join(u' ');
}

TEST(KeyStringTest, KeyStringsBecomeEvents)
{
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {u"a"_s, u"65 -65"_s},
        {u"A1 "_s, u"16 65 -65 -16 49 -49 32 -32"_s},
        {u"~"_s, u"13 -13"_s},
        {u"{right}"_s, u"x39 -39"_s},
        {u"{DOWN 3}"_s, u"x40 -40 x40 -40 x40 -40"_s},
        {u"{F1}{f16}{TAB}"_s, u"112 -112 127 -127 9 -9"_s},
        {u"{}}"_s, u"16 221 -221 -16"_s},
        {u"{(}{+}"_s, u"16 57 -57 -16 16 187 -187 -16"_s},
        {u"{X 0}{X -1}"_s, u""_s},
        // A modifier holds for the next item, and for a whole group.
        {u"+{TAB}a"_s, u"16 9 -9 -16 65 -65"_s},
        {u"^(ab)c"_s, u"17 65 -65 66 -66 -17 67 -67"_s},
        {u"+(A)"_s, u"16 65 -65 -16"_s},
        {u"^"_s, u"17 -17"_s},
        // A group holds plain characters only.
        {u"({a})"_s, u"16 219 -219 -16 65 -65 16 221 -221 -16"_s},
        // Brackets that close nothing send nothing; what follows them is read as it stands.
        {u"()a"_s, u"16 48 -48 -16 65 -65"_s},
        {u"{ab"_s, u"65 -65 66 -66"_s},
        {u"{}"_s, u"16 221 -221 -16"_s},
        {u"é漢"_s, u"u233 -u233 u28450 -u28450"_s},
    };
    for (const auto &[keys, expected] : cases)
        EXPECT_EQ(events(keys), expected) << keys.toStdString();
    EXPECT_EQ(events(u"aB1"_s, CapsLockOn()), u"16 65 -65 -16 66 -66 49 -49"_s);
    EXPECT_EQ(events(u"@"_s, AltGrLayout()), u"17 18 81 -81 -17 -18"_s);
    EXPECT_EQ(keyEvents(u"a"_s, KeyboardLayout()).back(), (KeyboardEvent{65, 0x1E, KeyboardEvent::Up}));
    EXPECT_EQ(keyEvents(QString(300, u'X'), KeyboardLayout()).size(), 1200U);
}

TEST(KeySenderTest, KeysArriveInOrderWhereTheFocusIs)
{
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    auto *first = new QLineEdit;
    auto *second = new QLineEdit;
    layout->addWidget(first);
    layout->addWidget(second);
    dialog.show();
    dialog.activateWindow();
    first->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    SendKeysInput(u"aB{TAB}"_s + literalKeys(u"+(é)~{x}"_s) + u"{LEFT}{BS}"_s);
    EXPECT_EQ(first->text(), QString()) << "before the handler returned";
    EXPECT_TRUE(QTest::qWaitFor([&] { return second->text() == u"+(é){}"_s; }))
        << second->text().toStdString();
    EXPECT_EQ(first->text(), u"aB"_s);
}

TEST(KeySenderTest, KeysWaitForTheScreenBelowABox)
{
    ASSERT_EQ(QGuiApplication::focusObject(), nullptr);
    SendKeysInput(u"ab{LEFT}c"_s);
    QCoreApplication::sendPostedEvents();
    QLineEdit edit;
    edit.show();
    edit.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == u"acb"_s; })) << edit.text().toStdString();
}

} // namespace

} // namespace quaverly::test
