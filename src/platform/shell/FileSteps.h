// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/Descriptor.h"
#include "platform/shell/FileCopy.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

#include <optional>

/** The steps of which copying and moving a file are made. */
namespace shell {

/** A path as messages show it, and as the system takes it. */
class FilePath final
{
public:
    /** @throws dao::DaoError 53 for a text that can be no file's name. */
    static FilePath ofSource(const QString &path);
    /** @throws dao::DaoError 75 for one. */
    static FilePath ofTarget(const QString &path);

    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] const char *system() const { return m_bytes.constData(); }
    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }
    /** With its trailing separator. */
    [[nodiscard]] QByteArray folder() const;
    [[nodiscard]] QString name() const;

private:
    FilePath(QString text, QByteArray bytes) : m_text(std::move(text)), m_bytes(std::move(bytes)) {}

    QString m_text;
    QByteArray m_bytes;
};

/** A regular file opened for reading, links followed. */
class SourceFile final
{
public:
    /** @throws dao::DaoError 53, 70, 75 */
    explicit SourceFile(const FilePath &path);

    [[nodiscard]] qint64 size() const { return m_about.st_size; }
    [[nodiscard]] const struct stat &about() const { return m_about; }
    /** From the place on, as much as there is. @throws dao::DaoError */
    [[nodiscard]] QByteArray read(qint64 from, qsizetype length) const;
    /** Size or time are no longer those of the opening. */
    [[nodiscard]] bool hasChanged() const;
    [[nodiscard]] const FilePath &path() const { return m_path; }
    [[nodiscard]] int descriptor() const { return m_file.get(); }

private:
    FilePath m_path;
    Descriptor m_file;
    struct stat m_about = {};
};

/** A copy in the making beside its target, under a hidden name; it goes unless it was named. */
class TemporaryCopy final
{
public:
    /** @throws dao::DaoError 61, 70, 75, 76 */
    explicit TemporaryCopy(FilePath target);
    ~TemporaryCopy();
    Q_DISABLE_COPY_MOVE(TemporaryCopy)

    /** False when it was given up. @throws dao::DaoError */
    [[nodiscard]] bool fill(const SourceFile &source, const CopyProgress &progress);
    /** Time stamps and rights, as far as the file system can hold them, and all of it on the disk. */
    void finish(const SourceFile &source);
    /** Reads both again. @throws dao::DaoError 75 when they differ */
    void compare(const SourceFile &source) const;
    /** Gives it the target's name. @throws dao::DaoError 58 unless it may @p overwrite */
    void takeName(bool overwrite);

private:
    void write(const QByteArray &bytes);

    FilePath m_target;
    QByteArray m_name;
    Descriptor m_file;
    bool m_named = false;
};

/**
 * Renames without ever replacing a file: in one step, or in the ways that serve where the file system has
 * no such step. @returns 0, or the system's error number; nothing has changed then
 */
[[nodiscard]] int renameKeeping(const QByteArray &from, const QByteArray &to);
[[nodiscard]] int renameByLink(const QByteArray &from, const QByteArray &to);
[[nodiscard]] int renameOverPlaceholder(const QByteArray &from, const QByteArray &to);

/** By copying, for another file system. @throws dao::DaoError */
void moveByCopy(const FilePath &from, const FilePath &to);

/** Changes the capitals of a name on a file system that is blind to them. @throws dao::DaoError */
void renameCapitals(const FilePath &from, const FilePath &to);

/** Puts a folder's names on the disk, as far as its file system can. */
void syncFolder(const QByteArray &folder);

/** Hidden names of files under way, of no type that is taken for music: a copy, which may go when nobody
 * works at it, and a song between two spellings of its name, which is all that is left of it. */
inline constexpr char CopyName[] = ".quaverly-XXXXXX.part";
inline constexpr char BetweenName[] = ".quaverly-XXXXXX.song";

/** A path beside @p target that nobody else uses, and its file, open for writing. -1 on failure. */
[[nodiscard]] int makeTemporary(const FilePath &target, const char *pattern, QByteArray *name);

/** Of the name itself, links not followed. */
[[nodiscard]] std::optional<struct stat> aboutName(const FilePath &path);
[[nodiscard]] bool isSameFile(const struct stat &left, const struct stat &right);
/** Its folder lists it in these very letters. */
[[nodiscard]] bool isListed(const FilePath &path);

} // namespace shell
