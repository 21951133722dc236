// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/PictureFiles.h"

#include <filesystem>
#include <vector>

namespace quaverly {

class Desktop;

/** Keeps the two folders of pictures tidy. */
class PictureHousekeeping final
{
public:
    PictureHousekeeping(Desktop &desktop, Catalogue &catalogue)
        : m_desktop(desktop), m_catalogue(catalogue), m_files(catalogue)
    {}

    void OphanedPictures_Click();
    void EmptyDeletedPicturesFolder_Click();

private:
    /** By their paths as the file system has them: names may be no valid text. */
    using Files = std::vector<std::filesystem::path>;

    void checkOrphans();
    /** Those that no song has. */
    [[nodiscard]] Files orphansOf(const Files &pictures) const;
    void removeOrphans(const Files &orphans);
    void noteMoves(const Files &orphans);
    void emptyDeleted();
    void tell(const QString &text);
    [[nodiscard]] bool ask(const QString &text, const QString &title);

    Desktop &m_desktop;
    Catalogue &m_catalogue;
    PictureFiles m_files;
};

/**
 * Deletes the files of one folder, and links without what they lead to; folders and hidden files stay. A
 * folder that is itself a link is left alone, and so is one that is not there.
 * @throws dao::DaoError 75 for the first file that stays; the others are deleted all the same.
 */
void deleteFilesOf(const QString &folder);

/** How many files deleteFilesOf would delete. */
[[nodiscard]] int countFilesOf(const QString &folder);

} // namespace quaverly
