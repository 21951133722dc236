// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quaverly::test {

/** Writes the file anew, its folders too. */
inline void writeFile(const QString &path, const QByteArray &bytes = "sound")
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size()) << path.toStdString();
}

/** What the file holds; "no such file" without one. */
[[nodiscard]] inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

} // namespace quaverly::test
