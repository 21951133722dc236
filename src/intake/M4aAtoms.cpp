// SPDX-License-Identifier: GPL-3.0-or-later
#include "intake/M4aAtoms.h"

#include "catalogue/GenreTable.h"
#include "intake/NewSong.h"
#include "intake/ScanReport.h"
#include "intake/VorbisComment.h"
#include "platform/store/DaoError.h"
#include "platform/text/Blanks.h"
#include "platform/text/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int FoundLimit = 6;
/** Type, child size, "data", flags and reserved bytes stand in front of a value in an atom's data. */
constexpr int ValueOffset = 20;

[[noreturn]] void throwPastEnd()
{
    throw dao::DaoError(62, u"The file ends within an atom or states a size that can't be right"_s);
}

/** The texts that the atoms gave, until the row takes them. */
struct M4aTexts
{
    QString SongName;
    QString Artist;
    QString AlbumName;
    QString Genre;
    QString Year;
    QString Composer;
};

/** The last `Size` - 24 bytes of the atom's data. */
QString valueOf(const QByteArray &data, qint32 size)
{
    if (size < ValueOffset + 4)
        throwPastEnd();
    return textOfBytes(QByteArrayView(data).sliced(ValueOffset));
}

QString numericGenre(const QByteArray &data, const GenreTable &genres)
{
    if (data.size() <= ValueOffset + 1)
        throwPastEnd();
    return genres.ReadProperty(QString::number(static_cast<quint8>(data[ValueOffset + 1]) - 1));
}

class ItemList final
{
public:
    ItemList(AtomReader &reader, ScanReport &report) : m_reader(reader), m_report(report) {}

    /** Handles the atoms of the list until one ends it, enough is found or the file ends. */
    M4aTexts read()
    {
        QByteArray data;
        QByteArray type;
        qint32 size = 0;
        const auto next = [&] { return m_report.attempt([&] { m_reader.ReadAtom(data, size, type); }); };
        while (!m_reader.atEnd() && next() && type != "free"_ba && type != "mdat"_ba && m_found != FoundLimit)
            handle(type, data, size);
        return m_texts;
    }

private:
    void handle(const QByteArray &type, const QByteArray &data, qint32 size)
    {
        const auto takeValue = [&](QString &text) {
            m_report.attempt([&] { text = valueOf(data, size); });
            ++m_found;
        };
        if (type == "\251nam"_ba) {
            if (!isGreaterThanBlank(trimBlanks(m_texts.SongName)))
                takeValue(m_texts.SongName);
        } else if (type == "\251ART"_ba) {
            if (!isGreaterThanBlank(trimBlanks(m_texts.Artist)))
                takeValue(m_texts.Artist);
        } else if (type == "\251alb"_ba) {
            // The album doesn't count towards the limit.
            m_report.attempt([&] { m_texts.AlbumName = valueOf(data, size); });
        } else if (type == "gnre"_ba) {
            m_report.attempt([&] { m_texts.Genre = numericGenre(data, m_genres); });
            ++m_found;
        } else if (type == "\251gen"_ba) {
            m_texts.Genre = textOfBytes(data.mid(ValueOffset));
            ++m_found;
        } else if (type == "\251day"_ba) {
            takeValue(m_texts.Year);
        } else if (type == "\251wrt"_ba) {
            takeValue(m_texts.Composer);
        }
    }

    AtomReader &m_reader;
    ScanReport &m_report;
    GenreTable m_genres = LoadGenreTable();
    M4aTexts m_texts;
    int m_found = 0;
};

/** Walks the fixed head; true when the item list comes next. */
bool reachItemList(AtomReader &reader)
{
    QByteArray data;
    QByteArray type;
    qint32 size = 0;
    reader.ReadAtom(data, size, type); // ftyp
    (void)reader.readHeader(8);        // moov
    reader.ReadAtom(data, size, type); // mvhd
    reader.ReadAtom(data, size, type); // trak
    (void)reader.readHeader(8);        // udta
    (void)reader.readHeader(12);       // meta with version and flags
    reader.ReadAtom(data, size, type); // hdlr
    return reader.readHeader(8).endsWith("ilst");
}

} // namespace

QByteArray AtomReader::readHeader(qint64 count)
{
    QByteArray bytes = m_file.read(count);
    if (bytes.size() != count)
        throwPastEnd();
    return bytes;
}

void AtomReader::ReadAtom(QByteArray &Data, qint32 &Size, QByteArray &Type)
{
    QByteArray head = readHeader(4);
    Size = HexBigEndian(head);
    const qint64 length = qint64(Size) - 4;
    const qint64 end = m_file.pos() + length;
    if (length < 4 || end > m_file.size())
        throwPastEnd();
    Data = readHeader(std::min(length, AtomBytesKept));
    if (!m_file.seek(end))
        throwPastEnd();
    Type = Data.first(4);
}

void fillFromM4aAtoms(QIODevice &file, NewSong &song, ScanReport &report)
{
    AtomReader reader(file);
    bool listed = false;
    report.attempt([&] { listed = reachItemList(reader); });
    const M4aTexts texts = listed ? ItemList(reader, report).read() : M4aTexts();

    song.write(u"SongName"_s, keepCharacters(texts.SongName, 255));
    song.write(u"Artist"_s, keepCharacters(texts.Artist, 255));
    song.write(u"AlbumName"_s, keepCharacters(texts.AlbumName, 255));
    song.write(u"Genre"_s, keepCharacters(texts.Genre, 255));
    song.write(u"Composer"_s, keepCharacters(texts.Composer, 255));
    song.write(u"Year"_s, keepCharacters(texts.Year, 10));
    song.completeArtist();
    song.completeSongName();
}

} // namespace quaverly
