// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Corpus.h"

#include "samples/SampleMaker.h"

#include <QDir>
#include <QSet>

#include <array>
#include <random>
#include <span>
#include <stdexcept>
#include <string_view>

using namespace Qt::StringLiterals;

namespace samples {

namespace {

using Words = std::span<const std::u16string_view>;

constexpr std::array<std::u16string_view, 24> FirstNames{
    u"Anna",  u"Björk", u"Chloé", u"Dmitri", u"Étienne", u"Fatima", u"Gösta", u"Hélène",
    u"Ívar",  u"João",  u"Kenji", u"Łukasz", u"Mary",    u"Niamh",  u"Oscar", u"Пётр",
    u"Quinn", u"Rosa",  u"Søren", u"Tomáš",  u"Úrsula",  u"Věra",   u"Wei",   u"Zoë"};
constexpr std::array<std::u16string_view, 24> LastNames{
    u"Adams",  u"Bäcker", u"Çelik",    u"Dvořák", u"Evans", u"Fernández", u"Grieg",  u"Holm",
    u"Ivanov", u"Jensen", u"Kowalski", u"Larsen", u"Moore", u"Núñez",     u"O'Hara", u"Petit",
    u"Quist",  u"Ruiz",   u"Šimić",    u"Tanaka", u"Urban", u"Vega",      u"Weiß",   u"Young"};
constexpr std::array<std::u16string_view, 12> Bands{
    u"The Paper Lanterns",   u"Salt & Cedar", u"東京ナイトバス", u"Los Faroles",
    u"Квартет Заря",         u"서울 블루",    u"AC Nord",        u"Die Wölfe & Söhne",
    u"Twelve \"Inch\" Moon", u"Γαλάζιο Κύμα", u"30 Acres",       u"Cœur d'Hiver"};
constexpr std::array<std::u16string_view, 24> Adjectives{
    u"Blue",  u"Quiet",  u"Broken", u"Électrique", u"Golden", u"Late",   u"Silver", u"Slow",
    u"Wild",  u"Hidden", u"Last",   u"Long",       u"Über",   u"Winter", u"Young",  u"Empty",
    u"First", u"Grey",   u"Lonely", u"Midnight",   u"New",    u"Open",   u"Red",    u"Summer"};
constexpr std::array<std::u16string_view, 24> Nouns{
    u"River",   u"Street", u"Garden", u"Señorita", u"Train", u"Letters", u"Moon",   u"Rain",
    u"Harbour", u"Dream",  u"Fire",   u"Café",     u"Road",  u"Waltz",   u"Hours",  u"Windows",
    u"Stars",   u"Snow",   u"Town",   u"Mirror",   u"Bird",  u"Bridge",  u"Hearts", u"Sky"};
constexpr std::array<std::u16string_view, 10> WholeTitles{
    u"夜の散歩", u"Don't Look Back", u"Где ты?", u"\"Heroes\" & Villains", u"한밤의 노래", u"Rock 'n' Roll",
    u"Què serà", u"99 Reasons",      u"¿Dónde?", u"Ohne Dich / Mit Dir"};
constexpr std::array<std::u16string_view, 12> Genres{u"Rock",   u"Pop",        u"Jazz",       u"Classical",
                                                     u"Folk",   u"Blues",      u"Soul",       u"Funk",
                                                     u"Reggae", u"Electronic", u"Soundtrack", u"R&B"};
constexpr std::array<std::u16string_view, 5> Comments{u"Live recording", u"Remastered", u"From the vinyl",
                                                      u"Bonus track", u"Où es-tu ?"};
// As collections are: mostly .mp3, then what newer programs write.
constexpr std::array<std::u16string_view, 20> Types{u"mp3", u"flac", u"m4a", u"ogg", u"wma", u"wav", u"aac",
                                                    u"mp4", u"mp3",  u"mp3", u"mp3", u"mp3", u"mp3", u"mp3",
                                                    u"mp3", u"m4a",  u"m4a", u"m4a", u"wma", u"flac"};
constexpr int DistinctTypes = 8;

class CorpusMaker
{
public:
    CorpusMaker(const QString &folder, quint32 seed) : m_folder(folder), m_random(seed) {}

    void make(int count)
    {
        while (m_made < count) {
            const QString artist = nextArtist();
            const int albums = 1 + below(3);
            for (int i = 0; i < albums && m_made < count; ++i)
                makeAlbum(artist, count);
        }
    }

private:
    // The library's own distributions differ from system to system.
    int below(int limit) { return static_cast<int>(m_random() % static_cast<quint32>(limit)); }
    bool oneIn(int n) { return below(n) == 0; }
    QString pick(Words words)
    {
        const auto word = words[static_cast<size_t>(below(static_cast<int>(words.size())))];
        return QString::fromUtf16(word.data(), static_cast<qsizetype>(word.size()));
    }

    QString nextArtist()
    {
        const QString name = oneIn(4) ? pick(Bands) : pick(FirstNames) + u' ' + pick(LastNames);
        QString unique = name;
        for (int n = 2; m_artists.contains(unique); ++n)
            unique = u"%1 %2"_s.arg(name).arg(n);
        m_artists.insert(unique);
        return unique;
    }

    QString title() { return oneIn(8) ? pick(WholeTitles) : pick(Adjectives) + u' ' + pick(Nouns); }

    /** The first albums show every type, so that a small collection does. */
    QString albumType()
    {
        return m_albums < DistinctTypes ? pick(Words(Types).subspan(static_cast<size_t>(m_albums++), 1))
                                        : pick(Types);
    }

    /** The characters that no file name on a stick may hold become dashes. */
    static QString fileName(QString text)
    {
        for (QChar &c : text) {
            if (u"*\\/:?|<>\""_s.contains(c))
                c = u'-';
        }
        return text;
    }

    void makeAlbum(const QString &artist, int count)
    {
        SongTags tags;
        tags.artist = artist;
        tags.album = title();
        tags.genre = pick(Genres);
        tags.year = 1955 + below(70);
        tags.tracks = 3 + below(10);
        const QString type = albumType();
        const QString folder = m_folder + u'/' + fileName(artist) + u'/' + fileName(tags.album);
        if (!QDir().mkpath(folder))
            throw std::runtime_error("can't make " + folder.toStdString());
        for (tags.track = 1; tags.track <= tags.tracks && m_made < count; ++tags.track)
            makeSongOf(tags, folder, oneIn(8) ? pick(Types) : type);
    }

    void makeSongOf(SongTags tags, const QString &folder, const QString &type)
    {
        tags.title = title();
        tags.composer = oneIn(2) ? pick(FirstNames) + u' ' + pick(LastNames) : QString();
        tags.comment = oneIn(5) ? pick(Comments) : QString();
        tags.beats = oneIn(2) ? 60 + below(120) : 0;
        const QString number = QString::number(tags.track).rightJustified(2, u'0');
        const QString path = folder + u'/' + number + u' ' + fileName(tags.title) + u'.' + type;
        m_maker.makeSong(path, tags);
        ++m_made;
    }

    QString m_folder;
    std::mt19937 m_random;
    SampleMaker m_maker;
    QSet<QString> m_artists;
    int m_albums = 0;
    int m_made = 0;
};

} // namespace

void makeCorpus(const QString &folder, int count, quint32 seed)
{
    CorpusMaker(folder, seed).make(count);
}

} // namespace samples
