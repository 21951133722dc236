// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorFixture.h"

#include "platform/text/Text.h"

#include <QAbstractButton>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace quaverly::test {

EditorTest::EditorTest()
    : commands({.services = store.services(desktop),
                .set = set,
                .mainScreen = screen,
                .player = player,
                .state = state,
                .showNameEdit =
                    [this](std::function<void()> closed) {
                        form = new NameEdit({.services = store.services(desktop),
                                             .set = set,
                                             .mainScreen = screen,
                                             .settings = store.settings(),
                                             .player = player,
                                             .state = state,
                                             .LastMusicFolder = LastMusicFolder,
                                             .now = [this] { return now; },
                                             .hooks = hooks});
                        form->showModally(std::move(closed));
                    },
                .showNameList = [this] { ++listShown; }})
{
    QDir().mkpath(music());
}

EditorTest::~EditorTest()
{
    delete form;
    set.Data1().Close();
}

qint64 EditorTest::song(const QString &name, const QString &artist)
{
    const QString file = name + u".mp3"_s;
    write(file, name.toUtf8());
    return store.addSong(Song(name, artist).file(music(), file));
}

void EditorTest::display()
{
    set.openAtLoad();
    set.openAtFirstActivation();
}

void EditorTest::edit(qint64 song)
{
    if (!set.Data1().isOpen())
        display();
    ASSERT_TRUE(set.Data1().findRecord(song));
    commands.cmdEdit_Click();
    ASSERT_TRUE(isOpen());
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
}

void EditorTest::add()
{
    if (!set.Data1().isOpen())
        display();
    commands.cmdAdd_Click();
    ASSERT_TRUE(isOpen());
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
}

QString EditorTest::shown(const QString &name)
{
    auto &widget = control(name);
    if (const auto *line = qobject_cast<QLineEdit *>(&widget))
        return line->text();
    if (const auto *box = qobject_cast<QComboBox *>(&widget))
        return box->currentText();
    if (const auto *label = qobject_cast<QLabel *>(&widget))
        return label->text();
    if (const auto *button = qobject_cast<QAbstractButton *>(&widget))
        return button->text();
    return qobject_cast<QPlainTextEdit *>(&widget)->toPlainText();
}

void EditorTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(form->focusWidget(), key, modifiers);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QString EditorTest::focus() const
{
    return form->focusWidget()->objectName();
}

QString EditorTest::value(qint64 song, const QString &field)
{
    return NullToEmpty(store.songValue(song, field));
}

void EditorTest::reopen()
{
    EXPECT_FALSE(isOpen());
    set.Data1().Close();
    store.reopen();
}

} // namespace quaverly::test
