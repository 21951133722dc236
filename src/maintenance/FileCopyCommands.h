// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "maintenance/MaintenanceParts.h"

#include <QString>
#include <QStringList>

namespace quaverly {

class WorkingWindow;

/** Copies music files to a folder: those of all displayed records, or that of the current one. */
class FileCopyCommands final
{
public:
    /** @p copyFolder is the folder copied to last in this run, empty before; it outlives this object. */
    FileCopyCommands(const MaintenanceParts &parts, QString &copyFolder);

    void mnuFileCopy_Click();
    void mnuPopupCopyFile_Click();

private:
    struct Result
    {
        /** Why nothing was copied at all; mostly empty. */
        QString shortage;
        qint64 count = 0;
        QStringList failures;
        /** Nothing more is copied. */
        bool isOver = false;
    };

    void copyDisplayed();
    void copyCurrent();
    [[nodiscard]] QString browse(const QString &prompt, const QString &title);
    [[nodiscard]] bool isConfirmed(const QString &folder);
    /** What to tell when there is too little room; empty when there is enough, or nobody knows. */
    [[nodiscard]] QString shortageIn(const QString &folder, const WorkingWindow &wait);
    void copyAll(const QString &folder, WorkingWindow &wait, Result &result);
    void copyOne(const QString &source, const QString &target, WorkingWindow &wait, Result &result);
    [[nodiscard]] bool goesOn(const WorkingWindow &wait);
    [[nodiscard]] bool mayReplace(const QString &name, const QString &folder);
    void tell(const Result &result, const QString &folder);

    MaintenanceParts m_parts;
    QString &m_copyFolder;
};

} // namespace quaverly
