// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/NewSong.h"

#include "platform/store/DaoError.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quaverly {

QString keepCharacters(const QString &text, qsizetype count)
{
    if (text.size() <= count)
        return text;
    return text.left(count > 0 && text[count - 1].isHighSurrogate() ? count - 1 : count);
}

QString textOfBytes(QByteArrayView bytes)
{
    // The decoder would wait for the rest of a character; a line end behind it says that none comes.
    return fromSystemCodePage(bytes.toByteArray() + '\n').chopped(1);
}

double numberOf(const QString &text)
{
    const double number = Val(ReplaceText(text, u","_s, {}));
    if (!IsNumeric(text) || !std::isfinite(number))
        throw dao::DaoError(6, u"\"%1\" is no number that can be kept"_s.arg(text));
    return number;
}

void NewSong::write(const QString &field, const QString &text)
{
    write(field, QVariant(text.isNull() ? u""_s : text));
}

void NewSong::write(const QString &field, const QVariant &value)
{
    const auto found =
        std::find_if(m_values.begin(), m_values.end(), [&](const Value &v) { return v.first == field; });
    if (found != m_values.end())
        found->second = value;
    else
        m_values.emplace_back(field, value);
}

QVariant NewSong::value(const QString &field) const
{
    const auto found =
        std::find_if(m_values.begin(), m_values.end(), [&](const Value &v) { return v.first == field; });
    return found == m_values.end() ? QVariant() : found->second;
}

QString NewSong::text(const QString &field) const
{
    return NullToEmpty(value(field));
}

void NewSong::completeArtist()
{
    if (!isGreaterThanBlank(text(u"Artist"_s)))
        write(u"Artist"_s, u"Unknown"_s);
}

void NewSong::completeSongName()
{
    if (!isGreaterThanBlank(text(u"SongName"_s)))
        write(u"SongName"_s, text(u"FileName"_s));
}

TagsRead tagsOf(const NewSong &song)
{
    return TagsRead::of([&](const QString &field) { return song.text(field); });
}

} // namespace quaverly
