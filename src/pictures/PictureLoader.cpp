// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureLoader.h"

#include "pictures/Picture.h"

#include <QDateTime>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr qsizetype MostKilobytes = 32 * 1024;

/** Empty for a file that is not there. */
QString keyOf(const QString &path, QSize box)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return {};
    return u"%1 %2 %3x%4 %5"_s.arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(box.width())
        .arg(box.height())
        .arg(path);
}

} // namespace

PictureLoader::PictureLoader(QObject *parent) : QObject(parent), m_pictures(MostKilobytes)
{
    m_reader.setMaxThreadCount(1);
}

PictureLoader::~PictureLoader()
{
    ++m_wish;
    m_reader.clear();
    m_reader.waitForDone();
}

std::optional<QImage> PictureLoader::picture(const QString &path, QSize box) const
{
    const QString key = keyOf(path, box);
    if (key.isEmpty())
        return QImage();
    if (const QImage *found = m_pictures.object(key))
        return *found;
    return std::nullopt;
}

void PictureLoader::want(const QStringList &paths, QSize box)
{
    // Whoever runs down the list asks for the row's pictures, not for those of the rows passed.
    m_reader.clear();
    const int wish = ++m_wish;
    for (const QString &path : paths) {
        const QString key = keyOf(path, box);
        if (key.isEmpty() || m_pictures.contains(key))
            continue;
        m_reader.start([this, wish, path, key, box] {
            if (wish != m_wish)
                return;
            const std::optional<Picture> read = readPicture(path, box);
            const QImage image = read ? read->image : QImage();
            QMetaObject::invokeMethod(
                this, [this, key, image] { take(key, image); }, Qt::QueuedConnection);
        });
    }
}

void PictureLoader::take(const QString &key, const QImage &image)
{
    m_pictures.insert(key, new QImage(image), 1 + image.sizeInBytes() / 1024);
    Q_EMIT loaded();
}

} // namespace quaverly
