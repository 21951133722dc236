// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/Columns.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

struct KnownType
{
    QLatin1StringView extension;
    QLatin1StringView text;
};

/** What isn't music. */
constexpr std::array OtherTypes{
    KnownType{"m3u"_L1, "M3U Play List"_L1},  KnownType{"m3u8"_L1, "M3U8 Play List"_L1},
    KnownType{"jpg"_L1, "JPEG Image"_L1},     KnownType{"jpeg"_L1, "JPEG Image"_L1},
    KnownType{"png"_L1, "PNG Image"_L1},      KnownType{"gif"_L1, "GIF Image"_L1},
    KnownType{"bmp"_L1, "Bitmap Image"_L1},   KnownType{"txt"_L1, "Text Document"_L1},
    KnownType{"rtf"_L1, "Rich Text File"_L1}, KnownType{"pdf"_L1, "PDF Document"_L1},
};

QString extensionOf(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot <= 0 ? QString() : name.mid(dot + 1);
}

/** Empty for a type that the system doesn't know. */
QLatin1StringView knownTypeText(const QString &extension)
{
    if (const MusicKind *kind = musicKindOf(u'.' + extension))
        return kind->typeText;
    const auto *found = std::ranges::find_if(OtherTypes, [&](const KnownType &type) {
        return extension.compare(type.extension, Qt::CaseInsensitive) == 0;
    });
    return found == OtherTypes.end() ? QLatin1StringView() : found->text;
}

/** At least that many digits, with zeros in front. */
void appendPadded(QString &text, qint64 number, int digits)
{
    qint64 limit = 10;
    for (; digits > 1; --digits) {
        if (number < limit)
            text += u'0';
        limit *= 10;
    }
    text += QString::number(number);
}

QString lengthText(const SongDetails &details)
{
    if (!details.milliseconds)
        return {};
    // Whole seconds, cut; but 0.998 is a second whose last samples a writer left out.
    const qint64 seconds = (*details.milliseconds + 5) / 1000;
    QString text;
    text.reserve(8);
    appendPadded(text, seconds / 3600, 2);
    text += u':';
    appendPadded(text, seconds / 60 % 60, 2);
    text += u':';
    appendPadded(text, seconds % 60, 2);
    return text;
}

QString bitRateText(const SongDetails &details)
{
    // The invisible left-to-right mark in front belongs to the column's text.
    return details.bitRate > 0 ? u"\u200E%1kbps"_s.arg(details.bitRate) : QString();
}

template <QString SongDetails::*Field> QString field(const SongDetails &details)
{
    return details.*Field;
}

struct DetailColumn
{
    int DetailColumns::*number;
    DetailText text;
};

constexpr std::array Details{
    DetailColumn{&DetailColumns::title, field<&SongDetails::title>},
    DetailColumn{&DetailColumns::artist, field<&SongDetails::artist>},
    DetailColumn{&DetailColumns::composer, field<&SongDetails::composer>},
    DetailColumn{&DetailColumns::album, field<&SongDetails::album>},
    DetailColumn{&DetailColumns::genre, field<&SongDetails::genre>},
    DetailColumn{&DetailColumns::duration, lengthText},
    DetailColumn{&DetailColumns::year, field<&SongDetails::year>},
    DetailColumn{&DetailColumns::comment, field<&SongDetails::comment>},
    DetailColumn{&DetailColumns::beats, field<&SongDetails::beats>},
    DetailColumn{&DetailColumns::bitRate, bitRateText},
    DetailColumn{&DetailColumns::track, field<&SongDetails::track>},
    DetailColumn{&DetailColumns::albumArtist, field<&SongDetails::albumArtist>},
    DetailColumn{&DetailColumns::disc, field<&SongDetails::disc>},
};

} // namespace

QString sizeText(qint64 bytes)
{
    if (bytes < 1024)
        return bytes == 1 ? u"1 byte"_s : u"%1 bytes"_s.arg(bytes);
    static constexpr std::array units{"KB"_L1, "MB"_L1, "GB"_L1, "TB"_L1, "PB"_L1};
    qint64 unit = 1024;
    size_t index = 0;
    // A thousand has four digits, so the next unit takes over before it is full.
    while (bytes / unit >= 1000 && index + 1 < units.size()) {
        unit *= 1024;
        ++index;
    }
    const auto value = static_cast<long double>(bytes) / static_cast<long double>(unit);
    const int decimals = value >= 100 ? 0 : value >= 10 ? 1 : value >= 1 ? 2 : 3;
    qint64 scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    const auto digits = static_cast<qint64>(value * static_cast<long double>(scale));
    QString text = QString::number(digits / scale);
    if (decimals > 0) {
        text += u'.';
        appendPadded(text, digits % scale, decimals);
    }
    return text + u' ' + units[index];
}

QString typeText(const QString &name, EntryKind kind)
{
    if (kind == EntryKind::Folder)
        return u"File folder"_s;
    const QString extension = extensionOf(name);
    if (const QLatin1StringView known = knownTypeText(extension); !known.isEmpty())
        return known;
    return extension.isEmpty() ? u"File"_s : extension.toUpper() + " File"_L1;
}

QString attributesText(const QString &name, EntryKind kind)
{
    const QString hidden = name.startsWith(u'.') ? u"H"_s : QString();
    switch (kind) {
    case EntryKind::Folder:
        return hidden + u'D';
    case EntryKind::File:
        return hidden + u'A';
    case EntryKind::Other:
        break;
    }
    return hidden + u'S';
}

QString withoutKnownExtension(const QString &name)
{
    const QString extension = extensionOf(name);
    return !knownTypeText(extension).isEmpty() ? name.chopped(extension.size() + 1) : name;
}

DetailText detailColumn(int column, int versionMajor)
{
    if (column == 0)
        return nullptr;
    const DetailColumns &numbers = detailColumns(versionMajor);
    const auto *const found = std::ranges::find_if(
        Details, [&](const DetailColumn &detail) { return numbers.*detail.number == column; });
    return found == Details.end() ? nullptr : found->text;
}

} // namespace shell
