// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Options.h"
#include "maintenance/MaintenanceCommands.h"
#include "songlist/SongListFixture.h"
#include "support/UserActs.h"

#include <QDialog>
#include <QLineEdit>
#include <QPointer>

namespace quaverly::test {

/** The songs of SongList, and what the commands over many of them need. */
class Maintenance : public SongList
{
public:
    using SongList::data;
    using SongList::desktop;
    using SongList::list;
    using SongList::mark;
    using SongList::set;
    using SongList::store;

    ~Maintenance() override { delete form.data(); }

    /** Keys of all songs. */
    QStringList songs()
    {
        return store.column(QStringLiteral("Select RecordID From tblContacts Order By RecordID"));
    }
    /** Keys of the songs on the grid, from the top. */
    QStringList shown()
    {
        QStringList keys;
        for (qint64 row = 0; row < rows(); ++row)
            keys.append(QString::number(data().Recordset().bookmarkAt(row).key));
        return keys;
    }

    /** Opens one of the commands' screens, and acts on it. */
    template <typename Form> void show()
    {
        delete form.data();
        auto *shownForm = new Form(parts);
        form = shownForm;
        shownForm->showModally();
    }
    void press(const QString &button) { click(*form, button); }
    QLineEdit *box(const QString &name) { return child<QLineEdit>(*form, name); }
    bool isOpen() const { return form && form->isVisible(); }

    QPointer<QDialog> form;
    Options &options = store.options();
    int backups = 0;
    bool backupWorks = true;
    /** What the user does meanwhile. */
    std::function<void()> duringBackup = [] {};
    bool busy = false;
    MaintenanceParts parts{.services = store.services(desktop),
                           .set = set,
                           .mainScreen = screen,
                           .busy = busy,
                           .beforeBulk = [this](const QString &) {
                               ++backups;
                               duringBackup();
                               return backupWorks;
                           }};
    MaintenanceCommands many{parts, {}};
};

} // namespace quaverly::test
