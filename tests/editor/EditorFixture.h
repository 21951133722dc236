// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "editor/EditCommands.h"
#include "editor/EditorState.h"
#include "editor/NameEdit.h"
#include "lists/PlayerState.h"
#include "support/Files.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

#include <QPointer>

namespace quaverly::test {

/** A catalogue of songs with files in a music folder, the main screen's commands, and the editor they open.
 */
class EditorTest : public ::testing::Test
{
protected:
    EditorTest();
    ~EditorTest() override;

    /** Full path in the music folder. */
    [[nodiscard]] QString music(const QString &name = {}) const
    {
        return store.path(QStringLiteral("music/") + name);
    }
    /** Writes the file, its folders too. */
    void write(const QString &name, const QByteArray &bytes = "sound") const
    {
        writeFile(music(name), bytes);
    }
    /** A song whose file "name.mp3" holds the song's name. */
    qint64 song(const QString &name, const QString &artist = QStringLiteral("Abba"));

    /** All songs, by their names, the first one current. */
    void display();
    /** Opens the editor on the song, or on a new record. */
    void edit(qint64 song);
    void add();
    [[nodiscard]] bool isOpen() const { return form && form->isVisible(); }

    template <typename T = QWidget> T &control(const QString &name) { return *child<T>(*form, name); }
    [[nodiscard]] QString shown(const QString &name);
    void enter(const QString &name, const QString &text) { retype(&control(name), text); }
    void press(const QString &name) { click(*form, name); }
    /** The key, and what it leads to. */
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] QString focus() const;
    [[nodiscard]] QString value(qint64 song, const QString &field);
    /** The store as after a restart; the editor must be closed. */
    void reopen();

    StoreFixture store;
    ScriptedDesktop desktop;
    Options &options = store.options();
    PlayerState player;
    EditorState state;
    DisplayedSet set{store.catalogue(), store.settings(), desktop};
    FakeMainScreen screen{&set};
    QString LastMusicFolder;
    QDateTime now{QDate(2026, 11, 22), QTime(19, 22, 5), Qt::UTC};
    NameEditHooks hooks;
    QPointer<NameEdit> form;
    int listShown = 0;
    EditCommands commands;
};

} // namespace quaverly::test
