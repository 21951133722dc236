// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "main/NameList.h"
#include "main/Program.h"
#include "platform/options/SingleInstance.h"
#include "samples/SampleMaker.h"
#include "songlist/SongGrid.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"

#include <QTemporaryDir>

namespace quaverly::test {

/** The program on a catalogue of its own, with a scripted user at the dialogs. */
class ProgramTest : public ::testing::Test
{
protected:
    ProgramTest();
    ~ProgramTest() override;

    [[nodiscard]] QString path() const { return m_dir.filePath(QStringLiteral("QVdata.mdb")); }
    [[nodiscard]] QString music() const { return m_dir.filePath(QStringLiteral("music/")); }

    /** Writes a sound file. */
    void addFile(const QString &name, const QString &title, const QString &artist);
    /** Puts a row into the catalogue, which no program has open; values by field. */
    void addSong(const QMap<QString, QVariant> &values);
    /** Songs "Song 00" and so on, by Abba and Blur in turn. */
    void addSongs(int count);
    /** First field of a statement's first row, in a catalogue that no program has open. */
    [[nodiscard]] QVariant valueOf(const QString &sql);

    void start(bool empty = false);
    void close();
    /** Lets the keys that were sent arrive. */
    void settle();

    [[nodiscard]] NameList &screen() { return *m_program->mainScreen(); }
    [[nodiscard]] SongGrid &grid() { return *child<SongGrid>(screen(), QStringLiteral("Table1")); }
    [[nodiscard]] QString cell(int row, int column);
    /** All texts of a column. */
    [[nodiscard]] QStringList column(int column);
    /** A click with the left button into a cell. */
    void clickCell(int row, int column);
    [[nodiscard]] QString description();
    /** The caption of a label or button of the main screen. */
    [[nodiscard]] QString shownText(const QString &control)
    {
        return child<QWidget>(screen(), control)->property("text").toString();
    }
    [[nodiscard]] QString currentSong() { return description().section(u'\n', 0, 0); }
    void addFolder();

    QTemporaryDir m_dir;
    samples::SampleMaker m_maker;
    ScriptedDesktop m_desktop;
    OptionsStore m_store{m_dir.filePath(QStringLiteral("options.ini"))};
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<Program> m_program;
    QStringList m_arguments;
    int m_quits = 0;
};

} // namespace quaverly::test
