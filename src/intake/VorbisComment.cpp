// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/VorbisComment.h"

#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "platform/store/DaoError.h"
#include "platform/text/Text.h"

#include <QStringDecoder>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype AllCharacters = std::numeric_limits<qsizetype>::max();

enum class AfterWriting { Nothing, Artist, SongName, TrackText };

struct VorbisKey
{
    QByteArray key;
    QString field;
    qsizetype kept;
    AfterWriting after = AfterWriting::Nothing;
};

const QList<VorbisKey> &vorbisKeys()
{
    static const QList<VorbisKey> keys{
        {"\0ARTIST="_ba, u"Artist"_s, 255, AfterWriting::Artist},
        {"\0TITLE="_ba, u"SongName"_s, 255, AfterWriting::SongName},
        {"\0ALBUM="_ba, u"AlbumName"_s, 255},
        {"\0DATE="_ba, u"Year"_s, 10},
        {"\0GENRE="_ba, u"Genre"_s, 255},
        {"\0COMPOSER="_ba, u"Composer"_s, 255},
        {"\0TRACKNUMBER="_ba, u"TrackText"_s, 10, AfterWriting::TrackText},
        {"\0COMMENT="_ba, u"Notes"_s, AllCharacters},
    };
    return keys;
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/** Where @p key stands, whose letters are upper case ones, in any case; -1 for nowhere. */
qsizetype placeOfKey(const QByteArray &buffer, const QByteArray &key)
{
    // Its end, the "=", is rarer than its beginning.
    const qsizetype last = key.size() - 1;
    for (qsizetype end = buffer.indexOf('=', last); end >= 0; end = buffer.indexOf('=', end + 1)) {
        const bool found = std::equal(key.begin(), key.end(), buffer.begin() + (end - last),
                                      [](char wanted, char c) { return upper(c) == wanted; });
        if (found)
            return end - last;
    }
    return -1;
}

[[noreturn]] void throwInvalidCall()
{
    throw dao::DaoError(5, u"The length of a comment or its number can't be right"_s);
}

/** Bytes of a character that has begun at the end of @p bytes and isn't whole. */
qsizetype unfinishedBytes(QByteArrayView bytes)
{
    for (qsizetype back = 1; back <= std::min<qsizetype>(3, bytes.size()); ++back) {
        const auto byte = static_cast<quint8>(bytes[bytes.size() - back]);
        if ((byte & 0xC0) == 0x80)
            continue;
        const qsizetype needed = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return needed > back ? back : 0;
    }
    return 0;
}

QString textOfCutValue(QByteArrayView bytes)
{
    const QByteArrayView whole = bytes.chopped(unfinishedBytes(bytes));
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(whole);
    return utf8.hasError() ? textOfBytes(bytes) : text;
}

void completeField(AfterWriting after, NewSong &song)
{
    switch (after) {
    case AfterWriting::Nothing:
        break;
    case AfterWriting::Artist:
        song.completeArtist();
        break;
    case AfterWriting::SongName:
        song.completeSongName();
        break;
    case AfterWriting::TrackText:
        if (const QString track = song.text(u"TrackText"_s); IsNumeric(track))
            song.write(u"TrackNum"_s, QVariant(numberOf(track)));
        break;
    }
}

} // namespace

qint32 HexLittleEndian(QByteArray &Text)
{
    if (Text.size() < 4)
        throwInvalidCall();
    Text.truncate(4);
    std::reverse(Text.begin(), Text.end());
    return HexBigEndian(Text);
}

qint32 HexBigEndian(QByteArray &Text)
{
    if (Text.isEmpty())
        throwInvalidCall();
    if (Text.size() > 4)
        throw dao::DaoError(6, u"Overflow"_s);
    Text = Text.toHex().toUpper();
    return static_cast<qint32>(Text.toUInt(nullptr, 16));
}

QString ReadVorbisComment(const QByteArray &Buffer, const QByteArray &Key)
{
    const qsizetype place = placeOfKey(Buffer, Key);
    if (place < 3)
        return {};
    QByteArray length = Buffer.mid(place - 3, 4);
    const qsizetype count = HexLittleEndian(length) - Key.size() + 1;
    if (count < 0)
        throwInvalidCall();
    const QByteArrayView value = QByteArrayView(Buffer).sliced(place + Key.size());
    return count > value.size() ? textOfCutValue(value) : textOfBytes(value.first(count));
}

void fillFromVorbisComments(const QByteArray &head, NewSong &song, ScanReport &report)
{
    for (const VorbisKey &key : vorbisKeys()) {
        report.attempt(
            [&] { song.write(key.field, keepCharacters(ReadVorbisComment(head, key.key), key.kept)); });
        report.attempt([&] { completeField(key.after, song); });
    }
}

} // namespace quaverly
