// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/PopulateFromText.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "intake/ScanReport.h"
#include "lists/PlayerState.h"
#include "platform/text/Text.h"
#include "playlists/ChartLine.h"
#include "playlists/TrackPreview.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qint64 LargestText = 64LL * 1024 * 1024;
/** A field's 255 characters, two units each. */
constexpr qsizetype LongestPiece = 510;

QString explanation()
{
    return u"This feature will add songs to the current Play List by reading the Song Name and Artist Name "
           "from a text file that you specify.  The text file must have one Song Name and Artist Name per "
           "line, and the Song Name must be separated from the Artist name with a comma.  For example, one "
           "line of the text file might look like this:\r\n"
           "Satisfaction, The Rolling Stones\r\n"
           "or like this:\r\n"
           "The Rolling Stones, Satisfaction\r\n"
           "It can also have leading numbers as long as there is a period after the number, like this:\r\n"
           "1. Satisfaction, The Rolling Stones\r\n\r\n"
           "Quaverly will then attempt to find that Song Name and Artist Name in your database.  If a match "
           "is found, that song will be added to the Play List.\r\n"
           "Proceed?"_s;
}

/** Texts of other machines tell by their first bytes how they are written, those of this one by nothing. */
QString decoded(const QByteArray &bytes)
{
    if (const auto encoding = QStringConverter::encodingForData(bytes))
        return QStringDecoder(*encoding)(bytes);
    // Line by line, so that a damaged one garbles no other.
    QString text;
    text.reserve(bytes.size());
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype end = bytes.indexOf('\n', start);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        text += fromSystemCodePage(QByteArrayView(bytes).sliced(start, next - start));
        start = next;
    }
    return text;
}

/** False for noise, which no field holds, and for nothing, which would find songs without an artist. */
bool isName(const QString &piece)
{
    return !piece.isEmpty() && piece.size() <= LongestPiece && !piece.contains(u'\0');
}

std::optional<Track> trackOfSongNamed(dao::Recordset &songs, const QString &songName, const QString &artist)
{
    songs.Seek(u"="_s, {songName, artist});
    if (songs.NoMatch())
        return std::nullopt;
    Track track = trackOfSong(songs);
    // This add leaves the title as it is.
    track.SongTitle = songs.value(u"SongName"_s);
    return track;
}

std::optional<Track> trackOfLine(dao::Recordset &songs, const QString &line)
{
    const auto names = splitChartLine(line);
    if (!names || !isName(names->Piece1) || !isName(names->Piece2))
        return std::nullopt;
    const auto inOrder = trackOfSongNamed(songs, names->Piece1, names->Piece2);
    return inOrder ? inOrder : trackOfSongNamed(songs, names->Piece2, names->Piece1);
}

/** Calls @p use with each line, without its end, until that gives false. */
template <typename Use> void forEachLine(const QString &text, Use use)
{
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            end = text.size();
        const bool isLong = end > start && text.at(end - 1) == u'\r';
        if (!use(text.sliced(start, end - start - (isLong ? 1 : 0))))
            return;
        start = end + 1;
    }
}

} // namespace

PopulateFromText::PopulateFromText(PopulateParts parts) : m_parts(std::move(parts))
{}

void PopulateFromText::mnuFilePopulate_Click()
{
    guarded(m_parts.services.desktop, u"Populate From Text File List"_s, [this] { populate(); },
            {nullptr, Icon::None});
}

PopulateFromText::Wish PopulateFromText::ask()
{
    switch (m_parts.services.desktop.MessageWithMore(explanation(), u"Confirmation"_s, Icon::Question,
                                                     Buttons::YesNo, std::nullopt,
                                                     QString::fromUtf16(ShowChangesCaption))) {
    case Answer::Yes:
        return Wish::Add;
    case Answer::More:
        return Wish::Look;
    default:
        return Wish::Nothing;
    }
}

bool PopulateFromText::isWanted(Found &found, const QString &list)
{
    TrackPreview preview({*m_parts.services.catalogue.CatalogueDb, m_parts.displayed}, list, found.tracks,
                         found.linesWithoutSong);
    if (!m_parts.services.desktop.ShowPreview(preview))
        return false;
    found.tracks = preview.tickedTracks();
    return true;
}

void PopulateFromText::populate()
{
    const QString name = m_parts.state.CurrentPlayListName;
    const Wish wish = ask();
    if (wish == Wish::Nothing || name.isEmpty())
        return;
    const auto path = m_parts.services.desktop.ShowOpenDialog(
        {u"Select a text file"_s,
         u"Text files (*.txt)|*.txt|All Files (*.*)|*.*"_s,
         m_parts.LastMusicFolder.isEmpty() ? QString() : EnsureBackslash(m_parts.LastMusicFolder),
         {}});
    if (!path)
        return;
    m_parts.services.desktop.setHourglass(true);
    const auto list = m_parts.lists.ListID(name);
    if (!list) {
        m_parts.services.desktop.resetPointer();
        m_parts.services.desktop.MessageBox(u'"' + name + u"\" Play list name not found."_s,
                                            u"Sub mnuPopupAddToPlaylist_Click"_s, Icon::Stop);
        return;
    }
    Found found = find(readText(*path), MostTracks - m_parts.lists.countTracks(*list));
    if (wish == Wish::Look && !isWanted(found, name)) {
        m_textFile.close();
        m_parts.services.desktop.resetPointer();
        return;
    }
    if (!found.tracks.isEmpty())
        m_parts.lists.addTracks(*list, found.tracks);
    if (found.isFull) {
        // Meant: the busy pointer stays, the text stays open and the box keeps its old rows.
        m_parts.services.desktop.MessageBox(
            u"The current Play List has reached maximum size of 32,000 songs.  Song "
            "not added to Play List."_s,
            u"Not added"_s);
        return;
    }
    m_textFile.close();
    m_parts.LoadDetailListbox();
    m_parts.services.desktop.resetPointer();
}

QString PopulateFromText::readText(const QString &path)
{
    m_textFile.close();
    m_textFile.setFileName(path);
    // A pipe or a device of that name would never come to its end.
    if (!FileExists(path) || !m_textFile.open(QIODevice::ReadOnly))
        throw dao::DaoError(dao::PathFileAccess, u"The text file \"%1\" can't be read."_s.arg(path));
    if (m_textFile.size() > LargestText) {
        m_textFile.close();
        throw dao::DaoError(dao::PathFileAccess,
                            u"\"%1\" is too large for a text file of song names."_s.arg(path));
    }
    const QByteArray bytes = m_textFile.readAll();
    if (m_textFile.error() != QFileDevice::NoError)
        throw dao::DaoError(dao::PathFileAccess, m_textFile.errorString());
    return decoded(bytes);
}

PopulateFromText::Found PopulateFromText::find(const QString &text, qint64 room) const
{
    ScanReport report({m_parts.reportPath});
    // One statement, prepared once: a text has many lines.
    const auto songs =
        m_parts.services.catalogue.CatalogueDb->OpenRecordset(u"tblContacts"_s, dao::RecordsetType::Table);
    songs->setIndex(u"SongName"_s);
    Found found;
    forEachLine(text, [&](const QString &line) {
        const auto track = trackOfLine(*songs, line);
        found.isFull = track && found.tracks.size() >= room;
        if (found.isFull)
            return false;
        if (track) {
            found.tracks.append(*track);
        } else if (isGreaterThanBlank(line.trimmed())) {
            report.note(u"No song of this name and artist was found."_s);
            report.settle(line);
            found.linesWithoutSong.append(line);
        }
        return true;
    });
    return found;
}

} // namespace quaverly
