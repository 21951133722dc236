// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "intake/KeyedCollection.h"
#include "platform/store/DaoError.h"

#include <QByteArray>
#include <QString>

#include <optional>

class QFile;

namespace quaverly {

/** An error of cMP3ID3v2: as any other, with the place in the program that it came from. */
class Mp3TagError final : public dao::DaoError
{
public:
    Mp3TagError(int errorNumber, const QString &text, QString errorSource)
        : DaoError(errorNumber, text), source(std::move(errorSource))
    {}

    /** The program's executable name and a suffix. */
    QString source;
};

/**
 * The ID3v2 tag of an MP3 file, read into memory. What is changed here is never written to the file.
 *
 * Sizes are read as plain numbers, never as packed ones, and texts keep the bytes that tell their encoding.
 * Before a file was assigned everything but the version and the plain properties throws dao::DaoError 91.
 */
class cMP3ID3v2 final
{
public:
    [[nodiscard]] bool HasID3v2Tag() const { return m_tagPosition >= 1; }
    /** The major version of the tag read last. A file without a tag leaves it, and HasID3v2Tag, as they were.
     */
    [[nodiscard]] quint8 ID3v2TagVersion() const { return m_tagVersion; }
    [[nodiscard]] qint32 FrameCount() const { return content().Frames.count(); }
    /** The frame id at a place, from 1. @throws dao::DaoError 9. */
    [[nodiscard]] QString Frame(qint32 index) const { return content().Frames.item(index); }

    /** Removes a frame with all its texts. @throws Mp3TagError, with nothing changed. */
    void RemoveFrame(const QString &frameId);
    /** The same by its place; the count at that place goes too, which may be another frame's. */
    void RemoveFrame(qint32 index);

    /** How many texts a frame holds. @throws dao::DaoError 5 or 9. */
    [[nodiscard]] qint32 TagsInFrame(const QString &frameId) const
    {
        return content().TagCounts.item(frameId);
    }
    /** By place; counts that grew have moved to the end, so that the order is not that of Frame. */
    [[nodiscard]] qint32 TagsInFrame(qint32 index) const { return content().TagCounts.item(index); }

    void AddTag(const QString &frameId, const QString &text);
    /** Removes one text and renumbers the frame's others; the texts of all other frames go with it.
     * @throws Mp3TagError, with nothing changed. */
    void RemoveTag(const QString &frameId, qint32 number);
    /** @throws dao::DaoError 5. */
    [[nodiscard]] QString Tag(const QString &frameId, qint32 number) const;

    /** The texts of all comment frames. */
    [[nodiscard]] const QString &Comment() const { return m_comment; }
    /** Replaces all comment frames by one. */
    void setComment(const QString &comment);

    /** Full path of the file assigned last. */
    [[nodiscard]] const QString &MP3File() const { return m_file; }
    /** Reads the file's tag. @throws Mp3TagError when it can't be opened, dao::DaoError for a size below 0.
     */
    void setMP3File(const QString &path);

    [[nodiscard]] quint8 TagVersion() const { return m_tagVersion; }

private:
    /** The three collections; Frames and TagCounts have the same keys. */
    struct Content
    {
        KeyedCollection<QString> Frames;
        KeyedCollection<qint32> TagCounts;
        /** By frame id, ":" and a number from 1. */
        KeyedCollection<QString> Tags;
    };

    void ReadTagFile();
    [[nodiscard]] static qint64 FindID3v2Tag(QFile &file);
    void ReadFrames(QFile &file);
    [[nodiscard]] static QString StripNulls(const QByteArray &bytes);
    [[nodiscard]] static QString ConvertFrameId(const QByteArray &id);
    void StoreTag(const QString &frameId, const QString &text);
    [[nodiscard]] static qint32 SwapLong(qint32 value);
    static void PutSwappedLong(QByteArray &bytes, qsizetype index, qint32 value);
    [[nodiscard]] static QString TrimAtNull(const QString &text);

    [[nodiscard]] const Content &content() const;
    [[nodiscard]] Content &content();
    void addText(const QString &frameId, const QString &text, bool isNew);
    template <typename KeyOrPlace> void removeFrame(const KeyOrPlace &which);

    QString m_file;
    /** Just behind "ID3", counted from 1; 0 before a tag was found. */
    qint64 m_tagPosition = 0;
    quint8 m_tagVersion = 0;
    QString m_comment;
    std::optional<Content> m_content;
};

} // namespace quaverly
