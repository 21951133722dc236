// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace samples {

/** What is written into a made song; empty texts and zeros are left out of its tag. */
struct SongTags
{
    QString title;
    QString artist;
    QString album;
    QString genre;
    QString composer;
    QString comment;
    int year = 0;
    int track = 0;
    int tracks = 0;
    int beats = 0;
    /** Length of .mp3, .mp2, .wav, .aiff and .aac; songs of the other types last a second. */
    int seconds = 1;
    QString albumArtist = {};
    int disc = 0;
};

/** Makes songs; keeps each type's silence, so one maker is for many of them. Not for several threads. */
class SampleMaker final
{
public:
    /**
     * The bytes of a small, playable sound file with these tags.
     * @param extension "mp3", "flac" or another of the kinds with a writer, without its dot, in any case
     * @throws std::invalid_argument for another type
     */
    [[nodiscard]] QByteArray song(const QString &extension, const SongTags &tags);

    /**
     * Writes such a file, replacing one that is there; the folder must exist.
     * @throws std::runtime_error when it can't be written
     */
    void makeSong(const QString &path, const SongTags &tags);

private:
    QHash<QString, QByteArray> m_silence;
};

/** One song by a maker of its own. */
void makeSong(const QString &path, const SongTags &tags);

} // namespace samples
