// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FilePatch.h"
#include "platform/shell/FileSteps.h"
#include "platform/shell/TagFile.h"

#include <memory>

namespace shell {

struct RewriteOptions
{
    bool keepTimes = false;
    /** A file with other names (hard links) leaves these with the version of before. */
    bool splitLinks = false;
};

/**
 * Makes a new version of a file from the present one: a whole, checked copy under a hidden name in the same
 * folder, with owner, rights and extended attributes, which then takes the file's place in one step. Links
 * are followed. A process that dies leaves the one version or the other, and perhaps the hidden copy, which
 * clearUnfinishedCopies() removes.
 */
class FileRewrite final
{
public:
    /**
     * Looks at the file. @throws dao::DaoError 53, 70, 75; 75 for a read-only file, and for one with other
     * names unless these may be split
     */
    FileRewrite(const QString &path, const RewriteOptions &options);
    ~FileRewrite();
    Q_DISABLE_COPY_MOVE(FileRewrite)

    [[nodiscard]] const SourceFile &source() const { return m_source; }
    [[nodiscard]] FileStamp stamp() const;
    /** @throws dao::DaoError 61 when the file system has no room for the new version */
    void assertRoom(qint64 bytes) const;

    /** Reckons the patch's two hashes, without writing anything. @throws dao::DaoError */
    void sum(FilePatch &patch) const;
    /** Writes the hidden copy and reads it back. Nothing is left after a failure. @throws dao::DaoError 61,
     * 70, 75 */
    void build(const FilePatch &patch);
    /** The hidden copy's path. */
    [[nodiscard]] const QByteArray &copy() const { return m_copyName; }
    /** Exchanges the two, unless the file has changed since it was looked at. @throws dao::DaoError 75 */
    void takePlace();

private:
    void assertMayChange() const;
    void copyRun(const FilePatch::Piece &piece);
    void write(const QByteArray &bytes);
    void takeRights() const;
    void takeAttributes() const;
    void check(const FilePatch &patch) const;
    [[nodiscard]] QByteArray bytesOf(const FilePatch::Piece &piece, qint64 from, qint64 length) const;
    void assertUnchanged() const;
    void dropCopy();

    RewriteOptions m_options;
    SourceFile m_source;
    QByteArray m_copyName;
    std::unique_ptr<Descriptor> m_copy;
};

} // namespace shell
