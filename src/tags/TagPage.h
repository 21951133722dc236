// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/TagFile.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quaverly {

/** A song's record, by the names of its fields, and its file. */
struct TaggedSong
{
    /** 0 for a record that is not kept yet. */
    qint64 song = 0;
    QString path;
    QMap<QString, QString> record;
    shell::FileTags file;
};

/** The record's fields that go with fields of tags. */
[[nodiscard]] QStringList tagRecordFields();

/** One thing that is to change. */
struct TagPlan
{
    /** Place among the page's songs. */
    int song = 0;
    /** The file's field; empty for its pictures. */
    QString field;
    bool toFile = true;
    QString before;
    QString after;
};

/**
 * The records and the files' tags of some songs, side by side, and what the user wants of them. Several
 * values of a field are one text, with "; " between them.
 */
class TagPage final
{
public:
    explicit TagPage(std::vector<TaggedSong> songs);

    [[nodiscard]] int count() const { return static_cast<int>(m_songs.size()); }
    [[nodiscard]] const TaggedSong &song(int place) const { return at(place).now; }

    /** The fields' names in their order: the known ones, then what else the files have. */
    [[nodiscard]] const QStringList &fields() const { return m_fields; }
    /** Adds a field for the files; nothing happens when it is there. */
    void addField(const QString &field);
    /** What people call it; its own name where it is not known. */
    [[nodiscard]] static QString label(const QString &field);
    /** The record's field that goes with it; empty when there is none. */
    [[nodiscard]] static QString recordField(const QString &field);

    /** Nothing where the songs differ. */
    [[nodiscard]] std::optional<QString> fileText(const QString &field, const QList<int> &songs) const;
    [[nodiscard]] std::optional<QString> recordText(const QString &field, const QList<int> &songs) const;
    /** Record and file tell different things, of one song at least. */
    [[nodiscard]] bool differs(const QString &field, const QList<int> &songs) const;
    [[nodiscard]] bool isChanged(const QString &field, bool ofFile, const QList<int> &songs) const;

    void setFileText(const QString &field, const QList<int> &songs, const QString &text);
    /** The record's value for the file, or the file's for the record, where they differ. */
    void takeToFile(const QString &field, const QList<int> &songs);
    void takeToRecord(const QString &field, const QList<int> &songs);

    [[nodiscard]] const QList<shell::TagPicture> &pictures(int song) const;
    void setPictures(const QList<int> &songs, const QList<shell::TagPicture> &pictures);

    [[nodiscard]] std::vector<TagPlan> plans() const;
    /** What those plans ask of a song's file, and of its record. */
    [[nodiscard]] shell::TagEdit edit(int song, const std::vector<TagPlan> &plans) const;
    [[nodiscard]] QMap<QString, QString> recordEdit(int song, const std::vector<TagPlan> &plans) const;
    /** A plan was carried out. */
    void settle(const TagPlan &plan);
    /** The file is of that version now. */
    void setFile(int song, const shell::FileTags &file) { at(song).now.file = file; }

private:
    struct Song
    {
        TaggedSong now;
        QMap<QString, QString> wantedFile;
        QMap<QString, QString> wantedRecord;
        std::optional<QList<shell::TagPicture>> pictures;
    };
    [[nodiscard]] const Song &at(int place) const { return m_songs[static_cast<std::size_t>(place)]; }
    [[nodiscard]] Song &at(int place) { return m_songs[static_cast<std::size_t>(place)]; }
    [[nodiscard]] static QString fileNow(const Song &song, const QString &field);
    [[nodiscard]] static QString recordNow(const Song &song, const QString &field);
    [[nodiscard]] static QString fileWanted(const Song &song, const QString &field);
    [[nodiscard]] static QString recordWanted(const Song &song, const QString &field);
    [[nodiscard]] static bool differs(const Song &song, const QString &field);

    std::vector<Song> m_songs;
    QStringList m_fields;
};

} // namespace quaverly
