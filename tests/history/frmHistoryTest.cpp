// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/frmHistory.h"
#include "history/HistoryCommands.h"
#include "platform/store/Sqlite.h"
#include "songlist/DisplayedSet.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quaverly::test {

namespace {

class TheHistory : public ::testing::Test
{
protected:
    TheHistory()
    {
        for (const QString &genre : {u"Pop"_s, u"Rock"_s, u"Jazz"_s}) {
            if (genre == u"Pop"_s)
                store.addSong(Song(u"Sun"_s));
            else
                store.db().Execute(u"Update tblContacts Set Genre = '%1'"_s.arg(genre));
            store.db().endChange();
        }
        set.Data1().setRecordSource(u"Select * from tblContacts"_s);
        set.Data1().Refresh();
    }
    void open()
    {
        form = new frmHistory(desktop, store.db(), commands);
        form->show();
    }
    [[nodiscard]] QStringList shownSentences()
    {
        const QAbstractItemModel &model = *child<QTableView>(*form, u"listChanges"_s)->model();
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.append(model.index(row, ChangeListModel::What).data().toString());
        return all;
    }
    void choose(int row) { child<QTableView>(*form, u"listChanges"_s)->selectRow(row); }

    StoreFixture store;
    ScriptedDesktop desktop;
    DisplayedSet set{store.catalogue(), store.settings(), desktop};
    QStringList told;
    HistoryCommands commands{{.services = store.services(desktop),
                              .set = set,
                              .tell = [this](const QString &sentence) { told.append(sentence); },
                              .showHistory = [this] { open(); },
                              .restoreBefore =
                                  [this](const QDateTime &made) {
                                      told.append(u"copy from before "_s + made.toString(Qt::ISODate));
                                      return true;
                                  }}};
    QPointer<frmHistory> form;
};

TEST_F(TheHistory, UndoesAndRedoesFromTheMenu)
{
    EXPECT_EQ(commands.undoCaption(), u"Undo Edit: Sun"_s);
    EXPECT_EQ(commands.redoCaption(), std::nullopt);
    commands.mnuUndo_Click();
    EXPECT_EQ(set.Data1().currentText(u"Genre"_s), u"Rock"_s) << "the list is shown anew";
    commands.mnuUndo_Click();
    EXPECT_EQ(commands.redoCaption(), u"Redo Edit: Sun"_s);
    commands.mnuUndo_Click();
    EXPECT_FALSE(set.Data1().hasRows());
    commands.mnuUndo_Click();
    commands.mnuRedo_Click();
    EXPECT_EQ(told, (QStringList{u"Taken back: Edit: Sun"_s, u"Taken back: Edit: Sun"_s,
                                 u"Taken back: Add: Sun"_s, u"Done again: Add: Sun"_s}));
    EXPECT_EQ(set.Data1().currentText(u"SongName"_s), u"Sun"_s);
}

TEST_F(TheHistory, GoesDownToTheChosenChangeAndForthAgain)
{
    commands.mnuHistory_Click();
    EXPECT_EQ(shownSentences(), (QStringList{u"Edit: Sun"_s, u"Edit: Sun"_s, u"Add: Sun"_s}));
    const QAbstractItemModel &rows = *child<QTableView>(*form, u"listRows"_s)->model();
    EXPECT_EQ(rows.index(0, ChangedRowsModel::Before).data(), u"Rock"_s);
    EXPECT_EQ(rows.index(0, ChangedRowsModel::After).data(), u"Jazz"_s);
    choose(1);
    desktop.willAnswer(Answer::No, u"2 changes will be taken back"_s);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_EQ(store.songValue(1, u"Genre"_s), u"Jazz"_s);
    choose(1);
    desktop.willAnswer(Answer::Yes, u"2 changes will be taken back"_s);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_EQ(store.songValue(1, u"Genre"_s), QVariant());
    EXPECT_TRUE(shownSentences().front().endsWith(u"(taken back)"_s));
    EXPECT_FALSE(child<QPushButton>(*form, u"cmdTakeBack"_s)->isEnabled());
    choose(1);
    click(*form, u"cmdMakeAgain"_s);
    EXPECT_EQ(store.songValue(1, u"Genre"_s), u"Rock"_s);
    type(child<QLineEdit>(*form, u"txtFilter"_s), u"add"_s);
    EXPECT_EQ(shownSentences(), QStringList(u"Add: Sun"_s));
}

TEST_F(TheHistory, SaysWhatStandsInTheWayAndLeavesItOutOnTheUsersWord)
{
    store.addSong(Song(u"Moon"_s).file(u"/m/"_s, u"moon"_s));
    store.db().endChange();
    store.db().Execute(u"Update tblContacts Set Genre = 'Folk'"_s);
    store.db().endChange();
    {
        dao::Connection elsewhere(store.catalogue().DatabaseFile, dao::Connection::Mode::ReadWrite);
        elsewhere.execute("UPDATE tblContacts SET Genre = 'Blues' WHERE SongName = 'Sun'");
    }
    const QString box = u"\"Edit 2 songs\" can't be taken back, since something stands in the way:\n\nSun"_s;
    const auto genres = [&] { return store.column(u"Select Genre From tblContacts"_s); };
    desktop.willSee(box);
    commands.mnuUndo_Click();
    open();
    desktop.willAnswer(Answer::No, box);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_EQ(genres(), (QStringList{u"Blues"_s, u"Folk"_s}));
    choose(0);
    desktop.willAnswer(Answer::Yes, u"Leave these as they are, and take back the rest?"_s);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_EQ(genres(), (QStringList{u"Blues"_s, {}}));
    store.db().Execute(u"Update tblContacts Set Genre = 'Jazz' Where SongName = 'Sun'"_s);
    store.db().endChange();
    commands.mnuUndo_Click();
    commands.mnuUndo_Click();
    EXPECT_EQ(genres(), QStringList(u"Blues"_s)) << "what was left out hinders no other change";
}

TEST_F(TheHistory, EndsAtWhatIsNotKeptAndOffersItsCopy)
{
    store.db().describeChange(u"Replace"_s);
    store.db().Execute(u"Update tblContacts Set Genre = 'Rock', Year = 1"_s);
    store.db().endChange();
    EXPECT_EQ(commands.undoCaption(), u"Undo Replace: 1 song"_s);
    store.db().ExecuteUnlogged(u"Delete * from tblContacts"_s, u"Delete all"_s);
    EXPECT_EQ(commands.undoCaption(), std::nullopt);
    open();
    choose(4);
    EXPECT_FALSE(child<QPushButton>(*form, u"cmdTakeBack"_s)->isEnabled());
    choose(0);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(told, QStringList(u"copy from before "_s +
                                dao::History(store.db()).changes().front().made.toString(Qt::ISODate)));
}

TEST_F(TheHistory, MakesOneChangeOfASittingThatGoesToAndFro)
{
    const auto save = [&](const QString &genre, const QString &sitting) {
        dao::History(store.db()).ofSitting(sitting);
        store.db().Execute(u"Update tblContacts Set Genre = '%1'"_s.arg(genre));
        store.db().endChange();
        store.db().endChange();
    };
    for (const QString &genre : {u"a"_s, u"b"_s, u"c"_s})
        save(genre, u"one"_s);
    save(u"d"_s, u"two"_s);
    save(u"c"_s, u"two"_s);
    open();
    EXPECT_EQ(shownSentences().size(), 4) << "nothing came of the second sitting";
    const QAbstractItemModel &rows = *child<QTableView>(*form, u"listRows"_s)->model();
    EXPECT_EQ(rows.rowCount(), 1);
    click(*form, u"cmdTakeBack"_s);
    EXPECT_EQ(store.songValue(1, u"Genre"_s), u"Jazz"_s);
    commands.mnuRedo_Click();
    EXPECT_EQ(store.songValue(1, u"Genre"_s), u"c"_s);
    save(u"e"_s, u"one"_s);
    EXPECT_EQ(dao::History(store.db()).changes().size(), 5U) << "what was gone along is over";
}

} // namespace

} // namespace quaverly::test
