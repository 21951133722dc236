// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/SampleBytes.h"

#include <QtEndian>

namespace quaverly::test {

namespace {

template <typename T> QByteArray little(T number)
{
    QByteArray bytes(sizeof(T), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray big32(qsizetype number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

QByteArray dataAtom(const QByteArray &value)
{
    return atom("data", QByteArray(8, '\0') + value);
}

} // namespace

QByteArray vorbisComments(const QList<QByteArray> &comments)
{
    QByteArray bytes;
    for (const QByteArray &comment : comments)
        bytes += little(static_cast<quint32>(comment.size())) + comment;
    return bytes;
}

QByteArray oggFile(const QList<QByteArray> &comments)
{
    return QByteArray("OggS") + QByteArray(80, '\1') + "\3vorbis" + little(quint32(4)) + "test" +
           little(static_cast<quint32>(comments.size())) + vorbisComments(comments) + QByteArray(400, '\1');
}

QByteArray atom(const QByteArray &type, const QByteArray &payload)
{
    return big32(payload.size() + 8) + type + payload;
}

QByteArray textAtom(const QByteArray &type, const QByteArray &value)
{
    return atom(type, dataAtom(value));
}

QByteArray genreAtom(int number)
{
    return atom("gnre", dataAtom(big32(number).last(2)));
}

QByteArray m4aFile(const QByteArray &items)
{
    const QByteArray list = atom("ilst", items);
    const QByteArray meta = atom("meta", QByteArray(4, '\0') + atom("hdlr", QByteArray(25, '\0')) + list);
    const QByteArray moov = atom("moov", atom("mvhd", QByteArray(100, '\0')) +
                                             atom("trak", QByteArray(300, 't')) + atom("udta", meta));
    return atom("ftyp", "M4A \0\0\0\0M4A mp42") + moov;
}

QByteArray mp3File(const QList<std::pair<QByteArray, QByteArray>> &texts, int frames)
{
    QByteArray tag;
    for (const auto &[id, text] : texts) {
        const QByteArray body = (id == "COMM" ? QByteArray("\0eng\0", 5) : QByteArray(1, '\0')) + text;
        tag += id + big32(body.size()) + QByteArray(2, '\0') + body;
    }
    QByteArray size(4, '\0');
    for (int i = 0; i < 4; ++i)
        size[i] = static_cast<char>((tag.size() >> (7 * (3 - i))) & 0x7f);
    const QByteArray frame = QByteArray::fromHex("fffb9064") + QByteArray(413, '\0');
    return QByteArray("ID3\3\0\0", 6) + size + tag + frame.repeated(frames);
}

QByteArray wavFile()
{
    const QByteArray format = little(quint16(1)) + little(quint16(1)) + little(quint32(8000)) +
                              little(quint32(8000)) + little(quint16(1)) + little(quint16(8));
    const QByteArray chunks =
        "WAVEfmt " + little(quint32(16)) + format + "data" + little(quint32(8000)) + QByteArray(8000, '\200');
    return "RIFF" + little(static_cast<quint32>(chunks.size())) + chunks;
}

} // namespace quaverly::test
