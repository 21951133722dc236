// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace quaverly {

/**
 * A pattern of file names: "%Artist%/%AlbumName%/%TrackNum:2% %SongName%". A field of the song stands between
 * percent signs; with a number behind it, its number is filled up with zeros to so many digits. "%%" is one
 * percent sign, and a separator begins a folder's next one. The ending is no part of it.
 */
class RenamePattern final
{
public:
    explicit RenamePattern(const QString &text);

    /** Why it can't be used; empty when it can. */
    [[nodiscard]] const QString &complaint() const { return m_complaint; }
    /** Names of the fields that it reads, each once. */
    [[nodiscard]] QStringList fields() const;
    /** False for the name alone: the files then stay in their folders. */
    [[nodiscard]] bool namesFolders() const { return m_parts.size() > 1; }

    struct Name
    {
        /** Folders and file name, with the ending; as far as it came where there is a problem. */
        QString path;
        /** Why a file can't have it; mostly empty. */
        QString problem;
    };
    /** @p value gives the text of a field, @p ending what stands behind the name, with its dot. */
    [[nodiscard]] Name nameOf(const std::function<QString(const QString &field)> &value,
                              const QString &ending) const;

    /** Fields that are worth offering, the most useful first. */
    [[nodiscard]] static QStringList offeredFields();
    [[nodiscard]] static QString usualText();

private:
    /** A field, or a text where that is empty. */
    struct Piece
    {
        QString field{};
        int digits = 0;
        QString text{};
    };
    using Part = std::vector<Piece>;

    void parse(const QString &text);
    [[nodiscard]] Piece pieceOf(const QString &inside);
    void check();
    [[nodiscard]] static QString textOf(const Piece &piece,
                                        const std::function<QString(const QString &)> &value);
    [[nodiscard]] static QString
    nameOf(const Part &part, const std::function<QString(const QString &)> &value, QString &problem);

    /** Folders, and the file's name as the last. */
    std::vector<Part> m_parts;
    QString m_complaint;
};

} // namespace quaverly
