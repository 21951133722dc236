// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "categories/CategoryCommands.h"
#include "categories/CategoryGrid.h"
#include "songlist/SongListFixture.h"
#include "support/UserActs.h"

#include <QDialog>
#include <QTest>

namespace quaverly::test {

/** The songs of SongList, one category with two of them, and the commands that open the screens. */
class Categories : public SongList
{
protected:
    void SetUp() override
    {
        SongList::SetUp();
        window.show();
    }
    /** Lets a command open its screen. */
    void open(void (CategoryCommands::*command)())
    {
        (commands.*command)();
        dialog = window.findChild<QDialog *>();
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
    }
    CategoryGrid &grid(const S &name = QStringLiteral("CatgGrid"))
    {
        return *child<CategoryGrid>(*dialog, name);
    }
    S current(const S &name = QStringLiteral("CatgGrid"))
    {
        return grid(name).current() == nullptr ? S() : grid(name).current()->CategoryDesc;
    }
    void choose(const S &category)
    {
        for (const Category &each : grid().categories()) {
            if (each.CategoryDesc == category)
                grid().makeCurrent(each.CategoryNumber);
        }
        ASSERT_EQ(current(), category);
    }
    void press(const S &button) { click(*dialog, button); }
    bool isOpen() const { return dialog != nullptr && dialog->isVisible(); }
    QStringList categoryNames()
    {
        return store.column(
            QStringLiteral("Select CategoryDesc From tblCategoryDesc Order By CategoryNumber"));
    }
    QStringList songsOf(qint64 category)
    {
        return store.column(
            QStringLiteral("Select ID From tblCategoryID Where CategoryNumber=%1 Order By ID").arg(category));
    }
    /** As another program would. */
    void deleteElsewhere(qint64 category)
    {
        store.db().Execute(
            QStringLiteral("Delete From tblCategoryDesc Where CategoryNumber=%1").arg(category));
    }

    Options &options = store.options();
    int backups = 0;
    bool backupWorks = true;
    QWidget window;
    CategoryCommands commands{{.services = store.services(desktop),
                               .settings = store.settings(),
                               .set = set,
                               .mainScreen = screen,
                               .beforeBulk =
                                   [this](const QString &) {
                                       ++backups;
                                       return backupWorks;
                                   }},
                              window};
    QPointer<QDialog> dialog;
};

} // namespace quaverly::test
