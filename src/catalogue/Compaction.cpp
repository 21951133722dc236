// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Compaction.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Files that the store keeps beside a catalogue while it is open. */
constexpr std::array CompanionEndings = {"-wal"_L1, "-shm"_L1, "-journal"_L1};

/** The copy in the making; it goes unless it has taken the catalogue's place. */
class TemporaryCopy final
{
public:
    explicit TemporaryCopy(QString path) : m_path(std::move(path)) { remove(); }
    ~TemporaryCopy() { remove(); }
    TemporaryCopy(const TemporaryCopy &) = delete;
    TemporaryCopy &operator=(const TemporaryCopy &) = delete;
    [[nodiscard]] QString path() const { return m_path; }

private:
    // A journal left from a copy that was cut off would be played into the next one.
    void remove()
    {
        QFile::remove(m_path);
        for (const QLatin1StringView ending : CompanionEndings)
            QFile::remove(m_path + ending);
    }

    QString m_path;
};

/** The last one to close a catalogue takes these files away: where they are, another program has it open. */
void refuseIfOpenElsewhere(const QString &file)
{
    for (const QLatin1StringView ending : CompanionEndings) {
        if (QFileInfo::exists(file + ending))
            throw dao::DaoError(dao::Locked, u"The database is in use by another program.  Close it there, "
                                             "then try again."_s);
    }
}

void syncFolder(const QString &folder)
{
    // Where folders can't be synced, the new name is as safe as that file system makes it.
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

void takePlaceOf(const QString &file, const QString &copy)
{
    QFile::setPermissions(copy, QFile::permissions(file));
    if (std::rename(QFile::encodeName(copy).constData(), QFile::encodeName(file).constData()) != 0)
        throw dao::DaoError(dao::PathFileAccess,
                            u"Path/File access error: '%1'.  %2"_s.arg(file, qt_error_string(errno)));
    syncFolder(QFileInfo(file).absolutePath());
}

} // namespace

QString groupedNumber(qint64 number)
{
    QLocale locale;
    locale.setNumberOptions({});
    return locale.toString(number);
}

void exchangeCatalogue(const QString &databaseFile, const std::function<void(const QString &path)> &write)
{
    const QString target = QFileInfo(databaseFile).canonicalFilePath();
    const QString file = target.isEmpty() ? databaseFile : target;
    const TemporaryCopy copy(file + u".temp"_s);
    write(copy.path());
    refuseIfOpenElsewhere(file);
    takePlaceOf(file, copy.path());
}

CompactedSizes compactCatalogue(dao::DBEngine &engine, const QString &databaseFile)
{
    CompactedSizes sizes{QFileInfo(databaseFile).size(), 0};
    exchangeCatalogue(databaseFile, [&](const QString &path) {
        engine.CompactDatabase(databaseFile, path);
        sizes.newSize = QFileInfo(path).size();
    });
    return sizes;
}

} // namespace quaverly
