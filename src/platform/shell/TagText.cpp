// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/shell/TagText.h"

#include "platform/text/Text.h"

#include <taglib/id3v1genres.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>

#include <QtMath>

#include <algorithm>
#include <mutex>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

qsizetype digitsFrom(QStringView text, qsizetype at)
{
    qsizetype end = at;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - at;
}

TagLib::String decoded(const TagLib::ByteVector &bytes)
{
    // Most tags are plain ASCII, for which the two readings are one.
    bool ascii = true;
    for (const char c : bytes)
        ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if (ascii)
        return {bytes, TagLib::String::Latin1};
    const QString text = fromTagBytes(QByteArrayView(bytes.data(), bytes.size()));
    return {text.toUtf8().constData(), TagLib::String::UTF8};
}

struct Id3v2Text final : TagLib::ID3v2::Latin1StringHandler
{
    TagLib::String parse(const TagLib::ByteVector &bytes) const override { return decoded(bytes); }
};

// Fields of fixed width: blanks and NULs fill them up.
TagLib::String decodedField(const TagLib::ByteVector &bytes)
{
    const int end = bytes.find('\0');
    return decoded(end < 0 ? bytes : bytes.mid(0, static_cast<unsigned>(end))).stripWhiteSpace();
}

// TagLib's two base classes have no virtual destructor; these objects live as long as the program.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
struct Id3v1Text final : TagLib::ID3v1::StringHandler
{
    TagLib::String parse(const TagLib::ByteVector &bytes) const override { return decodedField(bytes); }
};

struct InfoText final : TagLib::RIFF::Info::StringHandler
{
    TagLib::String parse(const TagLib::ByteVector &bytes) const override { return decodedField(bytes); }
};
#pragma GCC diagnostic pop

} // namespace

QString fromTag(const TagLib::String &text)
{
    const auto *units = text.toCWString();
    const auto count = static_cast<qsizetype>(text.size());
    const auto *end = std::find(units, units + count, L'\0');
    // TagLib's characters are UTF-16 units, though each has room for more.
    if (std::any_of(units, end, [](wchar_t unit) { return static_cast<char32_t>(unit) > 0xFFFF; }))
        return QString::fromWCharArray(units, end - units);
    QString result(end - units, Qt::Uninitialized);
    std::copy(units, end, reinterpret_cast<char16_t *>(result.data()));
    return result;
}

QString fromTagBytes(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    // Behind the line feed a UTF-8 sequence that breaks off at the end is seen as none.
    return quaverly::fromSystemCodePage(bytes.first(end < 0 ? bytes.size() : end).toByteArray() + '\n')
        .chopped(1);
}

QString joined(const QStringList &values)
{
    QStringList kept;
    for (const QString &value : values) {
        if (!value.isEmpty() && !kept.contains(value))
            kept += value;
    }
    return kept.join("; "_L1);
}

QString joined(const TagLib::StringList &values)
{
    if (values.size() == 1)
        return fromTag(values.front());
    QStringList texts;
    for (const TagLib::String &value : values)
        texts += fromTag(value);
    return joined(texts);
}

QString genreName(const QString &text)
{
    QStringView number = text;
    if (number.startsWith(u'(') && number.endsWith(u')'))
        number = number.mid(1, number.size() - 2);
    if (number == "RX"_L1)
        return u"Remix"_s;
    if (number == "CR"_L1)
        return u"Cover"_s;
    bool isNumber = !number.isEmpty() && digitsFrom(number, 0) == number.size();
    const int index = isNumber ? number.toInt(&isNumber) : 0;
    if (!isNumber)
        return text;
    const TagLib::String name = TagLib::ID3v1::genre(index);
    return name.isEmpty() ? text : fromTag(name);
}

QString genres(const TagLib::StringList &values)
{
    QStringList names;
    for (const TagLib::String &value : values)
        names += genreName(fromTag(value));
    return joined(names);
}

QString yearOf(const QString &date)
{
    for (qsizetype at = 0; at < date.size();) {
        const qsizetype digits = digitsFrom(date, at);
        // Four digits, or the same with month, day and time written behind it.
        if (digits >= 4 && digits <= 14 && digits % 2 == 0)
            return date.mid(at, 4) == "0000"_L1 ? QString() : date.mid(at, 4);
        at += digits + 1;
    }
    return {};
}

QString beatsOf(const QString &text)
{
    qsizetype start = 0;
    while (start < text.size() && !isDigit(text[start]))
        ++start;
    qsizetype end = start + digitsFrom(text, start);
    if (end == start)
        return {};
    if (end < text.size() && text[end] == u'.')
        end += 1 + digitsFrom(text, end + 1);
    const double beats = QStringView(text).mid(start, end - start).toDouble();
    return beats < 0.5 || beats > 999'999 ? QString() : QString::number(qRound64(beats));
}

QString trackText(qint64 track, qint64 tracks)
{
    if (track <= 0)
        return {};
    const QString text = QString::number(track);
    return tracks > 0 ? text + u'/' + QString::number(tracks) : text;
}

void useSystemCodePageInTags()
{
    static std::once_flag once;
    std::call_once(once, [] {
        static const Id3v2Text id3v2;
        static const Id3v1Text id3v1;
        static const InfoText info;
        TagLib::ID3v2::Tag::setLatin1StringHandler(&id3v2);
        TagLib::ID3v1::Tag::setStringHandler(&id3v1);
        TagLib::RIFF::Info::Tag::setStringHandler(&info);
    });
}

} // namespace shell
