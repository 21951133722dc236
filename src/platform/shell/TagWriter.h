// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileRewrite.h"
#include "platform/shell/TagFile.h"

namespace shell {

/**
 * Writes tags into one file, in steps, so that a note of it can be kept before anything is on the disk: plan,
 * build, takePlace. Until the last step the file has not changed.
 */
class TagWriter final
{
public:
    /**
     * Reckons the new version in memory.
     * @param seen the version that the edit was made for
     * @throws dao::DaoError 53, 70, 75: the file was changed meanwhile, can't be written to, or is of no
     * kind that can hold tags; a text that this kind of tag can't hold
     */
    TagWriter(const QString &path, const TagEdit &edit, const FileStamp &seen,
              const RewriteOptions &options = {});

    /** Bytes of the new version, which the file system must have room for beside the present one. */
    [[nodiscard]] qint64 size() const { return m_again.size; }
    /** The copy is whole, checked and on the disk when it returns. @throws dao::DaoError 61, 70, 75 */
    void build();
    /** What makes the new version, and what makes the present one again. */
    [[nodiscard]] const FilePatch &again() const { return m_again; }
    [[nodiscard]] FilePatch back() const { return m_again.backwards(m_file.source()); }
    /** @throws dao::DaoError 75 when the file has changed meanwhile; it stays then */
    void takePlace() { m_file.takePlace(); }

private:
    void assertAsAsked(const FileTags &before, const TagEdit &edit) const;

    FileRewrite m_file;
    TagEdit m_edit;
    FileTags m_before;
    FilePatch m_again;
};

/**
 * Makes the version of @p path that a kept patch leads to. Nothing happens when the file is of that version.
 * @throws dao::DaoError 75 when the file is not of the version that the patch was made for
 */
void applyPatch(const QString &path, const FilePatch &patch, const RewriteOptions &options = {});

enum class PatchState { CanBeApplied, IsApplied, OtherVersion, NoFile };
/** Never throws. */
[[nodiscard]] PatchState stateFor(const QString &path, const FilePatch &patch);

} // namespace shell
