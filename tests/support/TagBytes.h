// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QtEndian>

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

/** A version 3 tag around these frames. */
inline QByteArray id3v2(const QByteArray &frames)
{
    return QByteArray("ID3\3\0\0", 6) + syncSafe(static_cast<quint32>(frames.size())) + frames;
}

/** A tag with these frames and a second of silence at 128 kbps. */
inline QByteArray mp3File(const QByteArray &frames = {})
{
    return id3v2(frames) + (QByteArray::fromHex("fffb9064") + QByteArray(413, '\0')).repeated(40);
}

inline QByteArray atom(const QByteArray &name, const QByteArray &content)
{
    return bigEndian(static_cast<quint32>(content.size() + 8)) + name + content;
}

/** An atom of the item list. */
inline QByteArray itemAtom(const QByteArray &name, const QByteArray &value)
{
    return atom(name, atom("data", QByteArray(8, '\0') + value));
}

/** The usual head of an M4A file around @p items as its item list. */
inline QByteArray m4aFile(const QByteArray &items)
{
    const QByteArray meta = QByteArray(4, '\0') + atom("hdlr", QByteArray(25, '\0')) + atom("ilst", items);
    return atom("ftyp", "M4A \0\0\0\0M4A mp42") +
           atom("moov", atom("mvhd", QByteArray(100, '\0')) + atom("trak", QByteArray(300, 't')) +
                            atom("udta", atom("meta", meta)));
}

/** Comments, each behind its length, as the head of a FLAC or Ogg file holds them. */
inline QByteArray vorbisComments(const QList<QByteArray> &comments)
{
    QByteArray bytes;
    for (const QByteArray &comment : comments)
        bytes += littleEndian(static_cast<quint32>(comment.size())) + comment;
    return bytes;
}

/** An Ogg-like file: some bytes of a page, the comments, some bytes of sound. */
inline QByteArray oggFile(const QList<QByteArray> &comments = {})
{
    return QByteArray("OggS") + QByteArray(80, '\1') + "\3vorbis" + littleEndian(quint32(4)) + "test" +
           littleEndian(static_cast<quint32>(comments.size())) + vorbisComments(comments) +
           QByteArray(400, '\1');
}

} // namespace tagbytes
