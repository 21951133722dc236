// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <optional>

namespace quaverly {

/**
 * Reads pictures at the size in which they are shown, on a thread of its own, and keeps them for a while.
 * A file that changes is read again.
 */
class PictureLoader final : public QObject
{
    Q_OBJECT

public:
    explicit PictureLoader(QObject *parent = nullptr);
    /** Waits for the picture that is being read. */
    ~PictureLoader() override;

    /**
     * The picture, when it is at hand: a null image for a file that is none, or is not there. Nothing while
     * it has to be read.
     */
    [[nodiscard]] std::optional<QImage> picture(const QString &path, QSize box) const;

    /** Reads what of these is not at hand, the first ones first. What was wanted before no longer is. */
    void want(const QStringList &paths, QSize box);

Q_SIGNALS:
    /** A picture has come to hand. */
    void loaded();

private:
    void take(const QString &key, const QImage &image);

    /** By path, size and time of the file, and the box; costs are kilobytes. */
    QCache<QString, QImage> m_pictures;
    /** Counts the calls of want(), so that what waits from an earlier one is passed over. */
    std::atomic<int> m_wish = 0;
    QThreadPool m_reader;
};

} // namespace quaverly
