// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <array>
#include <exception>

#include "platform/store/DaoError.h"

namespace quaverly {

/** What kept something out of the catalogue. */
enum class PassedOver { Folder, RefusedName, LongPath, NoFile, NotStored };

/**
 * What a scan passed over or could not read, as a plain text file: a line a file, path, tab, reasons. Line
 * ends and tabs within a path are written as \n, \r and \t. The file is that of the last scan; a scan that
 * met nothing of the kind leaves none.
 */
class ScanReport final
{
public:
    /**
     * Takes earlier reports at @p places away. The first place that can be written to is taken; where
     * none can, the report is done without.
     */
    explicit ScanReport(const QStringList &places);

    /** Runs one statement of the scan; when it fails that is noted, and the next one runs. */
    template <typename Statement> bool attempt(Statement &&statement)
    {
        try {
            statement();
            return true;
        } catch (const dao::DaoError &error) {
            note(error.description);
        } catch (const std::exception &error) {
            note(QString::fromUtf8(error.what()));
        }
        return false;
    }

    /** Notes a reason for the file at hand; the same one counts once. */
    void note(const QString &reason);
    /** Notes it and counts the file among those that are not in the catalogue. */
    void passOver(PassedOver what, const QString &reason);
    [[nodiscard]] bool hasReasons() const { return !m_reasons.isEmpty(); }
    /** Writes what was noted since the last call, if anything, under @p path. It is on the disk at once. */
    void settle(const QString &path);

    [[nodiscard]] int count(PassedOver what) const { return m_counts[static_cast<std::size_t>(what)]; }
    /** Where the report is; empty when there is nothing in it, or it could not be written. */
    [[nodiscard]] QString path() const;

private:
    [[nodiscard]] bool append(const QByteArray &line);
    [[nodiscard]] bool moveOn();

    QStringList m_places;
    QFile m_file;
    QStringList m_reasons;
    std::array<int, 5> m_counts{};
};

} // namespace quaverly
