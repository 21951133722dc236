// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Shell.h"
#include "support/QtPrinters.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

/** Pieces of tags and files, byte by byte, where a tag writer would refuse to write them. */
namespace tagbytes {

template <typename Number> QByteArray bigEndian(Number value)
{
    const auto swapped = qToBigEndian(value);
    return {reinterpret_cast<const char *>(&swapped), sizeof swapped};
}

template <typename Number> QByteArray littleEndian(Number value)
{
    const auto swapped = qToLittleEndian(value);
    return {reinterpret_cast<const char *>(&swapped), sizeof swapped};
}

/** Seven bits a byte. */
inline QByteArray syncSafe(quint32 value)
{
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes += static_cast<char>(value >> shift & 0x7F);
    return bytes;
}

inline QByteArray frame(const QByteArray &id, const QByteArray &content, quint16 flags = 0)
{
    return id + bigEndian(static_cast<quint32>(content.size())) + bigEndian(flags) + content;
}

inline QByteArray latin1Frame(const QByteArray &id, const QByteArray &text)
{
    return frame(id, QByteArray(1, '\0') + text);
}

inline QByteArray commentFrame(const QByteArray &description, const QByteArray &text)
{
    return frame("COMM", QByteArray(1, '\0') + "eng" + description + '\0' + text);
}

/** A version 3 tag around these frames. */
inline QByteArray id3v2(const QByteArray &frames)
{
    return QByteArray("ID3\3\0\0", 6) + syncSafe(static_cast<quint32>(frames.size())) + frames;
}

inline QByteArray atom(const QByteArray &name, const QByteArray &content)
{
    return bigEndian(static_cast<quint32>(content.size() + 8)) + name + content;
}

inline QByteArray chunk(const QByteArray &name, const QByteArray &content)
{
    return name + littleEndian(static_cast<quint32>(content.size())) + content +
           QByteArray(content.size() % 2, '\0');
}

} // namespace tagbytes

/** A folder of files and the shell that looks at it. */
class ShellFixture : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        file.remove();
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(file.fileName());
        ASSERT_EQ(file.write(content), content.size());
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
        for (int column = 7; column <= 250; ++column) {
            if (const QString text = item.detail(column); !text.isEmpty())
                result.insert(column, text);
        }
        if (const QString failure = item.readFailure(); !failure.isEmpty())
            result.insert(-1, failure);
        return result;
    }

    QTemporaryDir m_folder;
};
