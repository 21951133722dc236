// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/AddCommands.h"
#include "intake/IntakeState.h"
#include "intake/MusicLoader.h"
#include "intake/ScanForms.h"
#include "lists/PlayerState.h"
#include "platform/shell/Shell.h"
#include "support/ScriptedDesktop.h"
#include "support/TagBytes.h"
#include "support/store/FakeMainScreen.h"
#include "support/store/StoreFixture.h"

#include <QWidget>

namespace quaverly::test {

/** The main screen as the intake sees it: a window that can be disabled. */
class IntakeMainScreen final : public FakeMainScreen
{
public:
    void setScreenEnabled(bool enabled) override { window.setEnabled(enabled); }
    QWidget window;
};

/** An empty catalogue, a music folder beside it, and the whole intake over both. */
class IntakeTest : public ::testing::Test
{
protected:
    IntakeTest();
    ~IntakeTest() override;

    /** Full path of a name in the music folder; a folder's name ends in the separator. */
    [[nodiscard]] QString music(const QString &name = {}) const
    {
        return m_store.path(QStringLiteral("music/")) + name;
    }
    /** Writes a file into the music folder, its folders too. */
    void write(const QString &name, const QByteArray &bytes) const;
    void writeAll(std::initializer_list<const char16_t *> names, const QByteArray &bytes) const;
    /** Sets up the intake anew, over this shell. */
    void useShell(std::unique_ptr<shell::Shell> shell);
    /** Scans the whole music folder and returns the closing message. */
    QString scan();

    /** A field of all songs, joined by "|", in the order of adding. */
    [[nodiscard]] QString stored(const QString &field);
    /** A field of the song with that file name. */
    [[nodiscard]] QVariant stored(const QString &field, const QString &fileName);
    [[nodiscard]] QString report() const;

    [[nodiscard]] QWidget *folderForm() const;
    [[nodiscard]] QWidget *driveForm() const;

    StoreFixture m_store;
    ScriptedDesktop m_desktop;
    IntakeMainScreen m_mainScreen;
    IntakeState m_state;
    PlayerState m_player;
    std::unique_ptr<shell::Shell> m_shell;
    std::unique_ptr<ScanForms> m_forms;
    std::unique_ptr<MusicLoader> m_loader;
    std::unique_ptr<AddCommands> m_commands;
    /** What the clock says, once a call; the last one stays. */
    QList<double> m_seconds{0};
};

} // namespace quaverly::test
