// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileStamp.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace shell {

/** A picture in a file's tags. */
struct TagPicture
{
    /** The role of a record's front cover; the numbers are those of ID3v2. */
    static constexpr int FrontCover = 3;

    QByteArray bytes;
    /** As in "image/jpeg". */
    QString mimeType;
    int role = FrontCover;
    QString description = {};
    bool operator==(const TagPicture &) const = default;
};

/** Values by the field's name in capitals: TITLE, ARTIST, ALBUMARTIST, DATE, REPLAYGAIN_TRACK_GAIN ... */
using TagFields = QMap<QString, QStringList>;

/** What a sound file's tags hold, and what the file tells of its sound; zeros where it tells nothing. */
struct FileTags
{
    TagFields fields;
    QList<TagPicture> pictures;
    /** The kinds of tags found, as people name them: "ID3v2.3", "ID3v1". */
    QStringList kinds;
    QString format;
    qint64 milliseconds = 0;
    int bitRate = 0;
    int sampleRate = 0;
    int channels = 0;
    /** Which version of the file was looked at. */
    FileStamp stamp = {};
    /** Other names of the same file: hard links. */
    int otherNames = 0;
};

/** @throws dao::DaoError 53, 70, or 75 for a file whose tags can't be read */
[[nodiscard]] FileTags readFileTags(const QString &path);

/** What is to change in a file's tags; all else stays. */
struct TagEdit
{
    /** An empty list takes the field out. */
    TagFields fields;
    /** All that the file is to have from then on. */
    std::optional<QList<TagPicture>> pictures = {};

    [[nodiscard]] bool isEmpty() const { return fields.isEmpty() && !pictures; }
};

/** The front cover, else the first picture; null without one. */
[[nodiscard]] const TagPicture *coverOf(const QList<TagPicture> &pictures);

} // namespace shell
