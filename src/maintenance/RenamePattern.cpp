// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/RenamePattern.h"

#include "catalogue/SongFields.h"
#include "desktop/FileHelpers.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** What file systems take: bytes of one name. */
constexpr qsizetype LongestName = 255;
constexpr int MostDigits = 9;
constexpr QLatin1StringView TrackNumber("TrackNum");
constexpr QLatin1StringView TrackText("TrackText");

/** Names of files are no content of the song, and notes have lines. */
bool isUsable(const SongField &field)
{
    return field.width != 0 && field.name != "PathName"_L1 && field.name != "FileName"_L1 &&
           field.name != "Selected"_L1 && !field.name.startsWith("PicturePath"_L1);
}

bool isIllegal(QChar character)
{
    return character < u' ' || character == u'\u007f' ||
           QStringView(IllegalFileNameCharacters).contains(character);
}

QString withoutIllegal(QString text)
{
    for (QChar &character : text) {
        if (isIllegal(character))
            character = u'_';
    }
    return text;
}

/** Blanks and dots at the ends are lost or hidden on some systems. */
QString cleanName(QString name)
{
    while (!name.isEmpty() && (name.endsWith(u'.') || name.back().isSpace()))
        name.chop(1);
    name = name.trimmed();
    if (name.startsWith(u'.'))
        name[0] = u'_';
    return name;
}

QString headingOf(const QString &name)
{
    if (name == TrackNumber)
        return u"Track"_s;
    const SongField *field = songField(name);
    return field == nullptr || field->heading.isEmpty() ? name : QString(field->heading);
}

/** "3/12" with two digits is "03"; the empty text where there is no number. */
QString numbered(const QString &text, int digits)
{
    static const QRegularExpression number(uR"(^\s*0*(\d+))"_s);
    const QString found = number.match(text).captured(1);
    return found.isEmpty() || found == "0"_L1 ? QString() : found.rightJustified(digits, u'0');
}

} // namespace

RenamePattern::RenamePattern(const QString &text)
{
    parse(text.trimmed());
    if (m_complaint.isEmpty())
        check();
}

void RenamePattern::parse(const QString &text)
{
    m_parts.emplace_back();
    const auto add = [this](const QString &literal) {
        if (!m_parts.back().empty() && m_parts.back().back().field.isEmpty())
            m_parts.back().back().text += literal;
        else
            m_parts.back().push_back({.text = literal});
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'/') {
            m_parts.emplace_back();
        } else if (text[i] != u'%') {
            add(text[i]);
        } else {
            const qsizetype end = text.indexOf(u'%', i + 1);
            if (end < 0) {
                m_complaint = u"A percent sign has no second one."_s;
                return;
            }
            if (end == i + 1)
                add(u"%"_s);
            else
                m_parts.back().push_back(pieceOf(text.mid(i + 1, end - i - 1)));
            i = end;
        }
    }
}

RenamePattern::Piece RenamePattern::pieceOf(const QString &inside)
{
    const QString name = inside.section(u':', 0, 0).trimmed();
    const SongField *field = songField(name);
    if (field == nullptr || (!isUsable(*field) && field->name != TrackNumber)) {
        m_complaint = u"\"%1\" is no field that a name can be made of."_s.arg(name);
        return {};
    }
    Piece piece{.field = field->name};
    if (inside.contains(u':')) {
        piece.digits = inside.section(u':', 1).toInt();
        if (piece.digits < 1 || piece.digits > MostDigits)
            m_complaint = u"Behind the colon of \"%1\" a number from 1 to %2 has to stand."_s.arg(inside).arg(
                MostDigits);
    }
    return piece;
}

void RenamePattern::check()
{
    if (fields().isEmpty()) {
        m_complaint = u"The pattern names no field: all files would have one name."_s;
        return;
    }
    for (const Part &part : m_parts) {
        if (part.empty())
            m_complaint = part.data() == m_parts.back().data() ? u"The pattern ends in a folder."_s
                                                               : u"A folder of the pattern has no name."_s;
        for (const Piece &piece : part) {
            if (std::ranges::any_of(piece.text, isIllegal))
                m_complaint = u"No file name may hold one of these characters: %1"_s.arg(
                    QString::fromUtf16(IllegalFileNameCharacters));
        }
        if (part.size() == 1 && part[0].field.isEmpty() && cleanName(part[0].text) != part[0].text.trimmed())
            m_complaint = u"\"%1\" can't be the name of a folder."_s.arg(part[0].text);
    }
}

QStringList RenamePattern::fields() const
{
    QStringList names;
    for (const Part &part : m_parts) {
        for (const Piece &piece : part) {
            if (!piece.field.isEmpty() && !names.contains(piece.field))
                names += piece.field;
            if (piece.field == TrackNumber && !names.contains(TrackText))
                names += TrackText;
        }
    }
    return names;
}

QString RenamePattern::nameOf(const Part &part, const std::function<QString(const QString &)> &value,
                              QString &problem)
{
    QString name;
    for (const Piece &piece : part) {
        if (piece.field.isEmpty()) {
            name += piece.text;
            continue;
        }
        const QString shown = textOf(piece, value);
        if (shown.isEmpty() && problem.isEmpty())
            problem = u"%1 is empty"_s.arg(headingOf(piece.field));
        name += shown;
    }
    return cleanName(name);
}

QString RenamePattern::textOf(const Piece &piece, const std::function<QString(const QString &)> &value)
{
    const QString text = value(piece.field);
    if (piece.digits == 0 && piece.field != TrackNumber)
        return withoutIllegal(text.trimmed());
    const int digits = std::max(piece.digits, 1);
    const QString number = numbered(text, digits);
    // Of a track that is kept as "3/12" there is only the text.
    return number.isEmpty() && piece.field == TrackNumber ? numbered(value(TrackText), digits) : number;
}

RenamePattern::Name RenamePattern::nameOf(const std::function<QString(const QString &field)> &value,
                                          const QString &ending) const
{
    Name made;
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const bool isFile = i + 1 == m_parts.size();
        QString name = nameOf(m_parts[i], value, made.problem);
        if (name.isEmpty() && made.problem.isEmpty())
            made.problem = u"Nothing is left of a name"_s;
        if (isFile)
            name += ending;
        if (name.toUtf8().size() > LongestName && made.problem.isEmpty())
            made.problem = u"The name is too long"_s;
        made.path += isFile ? name : name + u'/';
    }
    return made;
}

QStringList RenamePattern::offeredFields()
{
    return u"Artist AlbumArtist SongName AlbumName Disc TrackNum:2 Year Genre Composer TrackText Rating BPM "
           u"Bitrate ID Code "
           "MiscField1 MiscField2 MiscField3"_s.split(u' ');
}

QString RenamePattern::usualText()
{
    return u"%Artist%/%AlbumName%/%TrackNum:2% %SongName%"_s;
}

} // namespace quaverly
