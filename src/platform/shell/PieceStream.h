// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FilePatch.h"
#include "platform/shell/FileSteps.h"

#include <taglib/tiostream.h>

#include <map>

namespace shell {

/**
 * A file that TagLib may write to though nothing of it changes on the disk: what was written is kept as the
 * patch that makes the new version. What a damaged file may have read is bounded; past that every read comes
 * back empty, as at the end.
 */
class PieceStream final : public TagLib::IOStream
{
public:
    /** @p source outlives this object. */
    explicit PieceStream(const SourceFile &source);

    [[nodiscard]] FilePatch patch() const;
    [[nodiscard]] QByteArray bytesAt(qint64 offset, qint64 length);
    /** Puts @p bytes in the place of @p length bytes. */
    void replace(qint64 offset, qint64 length, const QByteArray &bytes);
    /** From here on the stream begins and ends so many bytes within the file. */
    void setMargins(qint64 front, qint64 back);
    [[nodiscard]] qint64 size() const { return m_size - m_front - m_back; }

    TagLib::FileName name() const override { return m_source.path().system(); }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector &data) override;
    void insert(const TagLib::ByteVector &data, unsigned long start, unsigned long replaced) override;
    void removeBlock(unsigned long start, unsigned long length) override;
    bool readOnly() const override { return false; }
    bool isOpen() const override { return true; }
    void seek(long offset, Position from = Beginning) override;
    long tell() const override { return m_position; }
    long length() override { return size(); }
    void truncate(long length) override;

private:
    using Pieces = std::map<qint64, FilePatch::Piece>;
    /** The piece that begins at @p offset, after a cut there if need be. */
    Pieces::iterator cutAt(qint64 offset);
    void splice(qint64 offset, qint64 length, const QByteArray &bytes);
    void shiftFrom(qint64 offset, qint64 by);

    const SourceFile &m_source;
    Pieces m_pieces;
    qint64 m_size;
    qint64 m_front = 0;
    qint64 m_back = 0;
    qint64 m_position = 0;
    qint64 m_allowance;
};

} // namespace shell
