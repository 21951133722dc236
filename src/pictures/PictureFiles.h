// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QImage;

namespace quaverly {

struct Catalogue;

/** How many pictures a song may have; its slots count from 1. */
inline constexpr int PictureCount = 8;

/** "PicturePath" and the slot: the field with the name of that slot's file. */
[[nodiscard]] QString pictureField(int slot);

/** The two folders of pictures beside the catalogue. Failures are dao::DaoError 75. */
class PictureFiles final
{
public:
    explicit PictureFiles(const Catalogue &catalogue) : m_catalogue(catalogue) {}

    /** "Pictures" and "Deleted Pictures", with their separators. They need not be there. */
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QString deletedFolder() const;

    [[nodiscard]] QString pathOf(const QString &name) const { return folder() + name; }
    /** False for a name that leads out of the folder. */
    [[nodiscard]] bool exists(const QString &name) const;

    void makeFolder() const;
    void makeDeletedFolder() const;

    /** Writes the picture as a JPEG file under the name, made to end in ".jpg"; one of that name is replaced.
     */
    void save(const QString &name, const QImage &box) const;

    /** Moves a picture to the deleted ones, where a file of that name stays: then the picture is deleted. The
     * journal is told of the move, and whose picture it was; 0 for a song that is not stored. */
    void retire(const QString &name, qint64 song) const;
    void remove(const QString &name) const;

private:
    void move(const QString &name) const;

    const Catalogue &m_catalogue;
};

/** ".jpg" is added, unless the name ends in it in any case. */
[[nodiscard]] QString withJpg(const QString &name);
/** A name of 5 characters or more that has another ending of four characters has ".jpg" in their place. */
[[nodiscard]] QString asLinkName(const QString &name);
/** The name that a picture from elsewhere is linked under; what is illegal in it is left out. */
[[nodiscard]] QString linkNameOf(const QString &path);

} // namespace quaverly
