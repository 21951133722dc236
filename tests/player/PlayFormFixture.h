// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/PlayerFixture.h"

#include "support/UserActs.h"

#include <QListView>
#include <QToolButton>

namespace quaverly::test {

using namespace Qt::StringLiterals;

/** What a user does with the player's screen. */
class ThePlayer : public PlayerTest
{
protected:
    /** Songs "a", "b" ... with a file each, displayed. */
    void makeSongs(const QString &letters)
    {
        for (const QChar letter : letters)
            song(letter, u"Artist"_s, QString(letter) + u".mp3"_s);
        display();
    }
    /** Plays the displayed songs, and waits for the first. */
    void playAll(const QString &letters)
    {
        makeSongs(letters);
        m_commands.cmdPlayAll_Click();
        waitFor(QString(letters.at(0)) + u".mp3"_s);
    }
    void playOne(int row = 0)
    {
        m_data.Recordset().setAbsolutePosition(row);
        m_commands.cmdPlay_Click();
        EXPECT_TRUE(QTest::qWaitFor([this] { return player().playState() == media::Playing; }));
    }
    /** Ends the song; waits for the next one. */
    void goOnTo(const QString &letter, int row)
    {
        finishSong();
        waitFor(letter + u".mp3"_s);
        EXPECT_EQ(ListIndex(), row) << letter.toStdString();
    }
    void check(const QString &name) { control<QCheckBox>(name).click(); }
    bool isChecked(const QString &name) { return control<QCheckBox>(name).isChecked(); }
    void clickRow(int row)
    {
        auto &list = control<QListView>(u"lbSongs"_s);
        const QModelIndex index = list.model()->index(row, 0);
        list.scrollTo(index);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
    }
    bool closes()
    {
        return QTest::qWaitFor([this] { return form() == nullptr; });
    }
    QString shown(const QString &label) { return control<QLabel>(label).text(); }
};

} // namespace quaverly::test
