// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Descriptor.h"

#include <QByteArray>
#include <QString>

#include <taglib/tiostream.h>

#include <exception>
#include <memory>

namespace shell {

/** A file whose details can't be read, and why. */
class Unreadable final : public std::exception
{
public:
    explicit Unreadable(QString reason) : m_reason(std::move(reason)) {}
    [[nodiscard]] const QString &reason() const { return m_reason; }
    [[nodiscard]] const char *what() const noexcept override { return "unreadable sound file"; }

private:
    QString m_reason;
};

/**
 * A sound file opened once, for reading only. The head is fetched in one piece, the rest in windows,
 * so that a usual file costs a handful of system calls.
 * What one file may cost is bounded: past its allowance every read comes back empty, as at the end.
 */
class SongStream final : public TagLib::IOStream
{
public:
    /**
     * @param path the file's path in the file system's own bytes
     * @throws Unreadable for anything but a regular file that can be read
     */
    explicit SongStream(const QByteArray &path);
    ~SongStream() override;

    [[nodiscard]] qint64 size() const { return m_size; }
    /** The first bytes of the file; shorter than @p length near its end. */
    [[nodiscard]] QByteArrayView head(qsizetype length) const;
    /** Bytes from anywhere, cut at the file's end, without moving the position. */
    [[nodiscard]] QByteArray bytesAt(qint64 offset, qsizetype length);
    /** The same without a copy, for no more than 64 KB; valid until the next reading. */
    [[nodiscard]] QByteArrayView viewAt(qint64 offset, qsizetype length);

    TagLib::FileName name() const override { return m_path.constData(); }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void seek(long offset, Position from = Beginning) override;
    long tell() const override { return m_position; }
    long length() override { return m_size; }
    bool readOnly() const override { return true; }
    bool isOpen() const override { return true; }
    void writeBlock(const TagLib::ByteVector &) override {}
    void insert(const TagLib::ByteVector &, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    void truncate(long) override {}

private:
    /** Room for the head and the largest window. */
    class Buffer
    {
    public:
        Buffer();
        ~Buffer();
        Q_DISABLE_COPY_MOVE(Buffer)
        [[nodiscard]] char *bytes() const { return m_bytes.get(); }

    private:
        std::unique_ptr<char[]> m_bytes;
    };
    struct Window
    {
        char *bytes = nullptr;
        qint64 start = 0;
        qsizetype length = 0;
        [[nodiscard]] bool holds(qint64 offset, qsizetype count) const;
    };

    [[nodiscard]] qsizetype readInto(char *to, qint64 offset, qsizetype count) const;
    void moveWindow(qint64 offset, qsizetype count);
    [[nodiscard]] bool spend(qsizetype count);

    QByteArray m_path;
    Descriptor m_file;
    qint64 m_size = 0;
    qint64 m_position = 0;
    Buffer m_buffer;
    Window m_head;
    Window m_window;
    qsizetype m_windowSize;
    qint64 m_allowanceForSearch;
    qint64 m_allowanceForPieces;
};

} // namespace shell
