// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Shell.h"
#include "support/Files.h"
#include "support/TagBytes.h"

#include <QMap>
#include <QTemporaryDir>

/** A folder of files and the shell that looks at it. */
class ShellFixture : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile::remove(path(name)); // which may be a link
        quaverly::test::writeFile(path(name), content);
    }

    /** Columns of one file by number, empty ones left out; -1 is the failure to read. */
    [[nodiscard]] QMap<int, QString> details(const QString &name, const shell::ShellTraits &traits = {}) const
    {
        const auto shell = shell::makeShell(traits);
        const auto folder = shell->NameSpace(m_folder.path());
        QMap<int, QString> result;
        for (qsizetype i = 0; folder && i < folder->count(); ++i) {
            if (folder->item(i).name() == name)
                result = detailsOf(folder->item(i));
        }
        return result;
    }

    [[nodiscard]] static QMap<int, QString> detailsOf(const shell::Item &item)
    {
        QMap<int, QString> result;
        for (int column = 7; column <= 260; ++column) {
            if (const QString text = item.detail(column); !text.isEmpty())
                result.insert(column, text);
        }
        if (const QString failure = item.readFailure(); !failure.isEmpty())
            result.insert(-1, failure);
        return result;
    }

    QTemporaryDir m_folder;
};
