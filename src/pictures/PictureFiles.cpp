// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureFiles.h"

#include "catalogue/Catalogue.h"
#include "desktop/FileHelpers.h"
#include "pictures/PictureErrors.h"
#include "pictures/cImage.h"
#include "pictures/cJpeg.h"
#include "platform/store/History.h"
#include "platform/text/Text.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype EndingLength = 4;

void make(const QString &folder)
{
    if (!FolderExists(folder) && !QDir().mkpath(folder))
        throw accessError(folder);
}

bool isJpg(const QString &name)
{
    return name.endsWith(".jpg"_L1, Qt::CaseInsensitive);
}

} // namespace

QString pictureField(int slot)
{
    return u"PicturePath"_s + QString::number(slot);
}

QString PictureFiles::folder() const
{
    return m_catalogue.DatabaseFolder + u"Pictures"_s + PathSeparator;
}

QString PictureFiles::deletedFolder() const
{
    return m_catalogue.DatabaseFolder + u"Deleted Pictures"_s + PathSeparator;
}

bool PictureFiles::exists(const QString &name) const
{
    return !name.contains(PathSeparator) && FileExists(pathOf(name));
}

void PictureFiles::makeFolder() const
{
    make(folder());
}

void PictureFiles::makeDeletedFolder() const
{
    make(deletedFolder());
}

void PictureFiles::save(const QString &name, const QImage &box) const
{
    if (name.contains(PathSeparator))
        throw accessError(name);
    makeFolder();
    // Always written anew, so that every stored picture is of one size and kind.
    cImage image;
    image.CopyStdPicture(box);
    cJpeg jpeg;
    jpeg.SetSamplingFrequencies(2, 2, 1, 1, 1, 1);
    jpeg.setQuality(75);
    jpeg.SampleHDC(image.hDC(), image.Width(), image.Height());
    jpeg.SaveFile(pathOf(withJpg(name)));
}

void PictureFiles::retire(const QString &name, qint64 song) const
{
    makeDeletedFolder();
    if (FileExists(deletedFolder() + name))
        return remove(name);
    // First: a death in between leaves a picture that is where the journal would take it back to.
    dao::History history(*m_catalogue.CatalogueDb);
    history.notePictureMoved(song, pathOf(name), deletedFolder() + name);
    m_catalogue.CatalogueDb->workspace().settle();
    try {
        move(name);
    } catch (const dao::DaoError &) {
        history.forgetCurrent();
        throw;
    }
}

void PictureFiles::move(const QString &name) const
{
    if (!QFile::rename(pathOf(name), deletedFolder() + name))
        throw accessError(pathOf(name));
}

void PictureFiles::remove(const QString &name) const
{
    DeleteFile(pathOf(name));
}

QString withJpg(const QString &name)
{
    return isJpg(name) ? name : name + u".jpg"_s;
}

QString asLinkName(const QString &name)
{
    return name.size() <= EndingLength || isJpg(name) ? name : name.chopped(EndingLength) + u".jpg"_s;
}

QString linkNameOf(const QString &path)
{
    QString name = fileNameOf(path);
    for (const QChar c : QString::fromUtf16(IllegalFileNameCharacters))
        name.remove(c);
    if (isJpg(name) && name.size() > EndingLength)
        return name;
    const qsizetype point = name.lastIndexOf(u'.');
    const QString base = (point > 0 ? name.first(point) : name).trimmed();
    return (base.isEmpty() ? u"Picture"_s : base) + u".jpg"_s;
}

} // namespace quaverly
