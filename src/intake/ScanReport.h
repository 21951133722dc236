// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <exception>

#include "platform/store/DaoError.h"

namespace quaverly {

/**
 * What a scan passed over, as a plain text file: a line a file, path, tab, reasons. Line ends and
 * tabs within a path are written as \n, \r and \t. The file is that of the last scan; a scan that
 * skipped nothing leaves none.
 */
class ScanReport final
{
public:
    /** Takes an earlier report at @p path away. A report that can't be written is done without. */
    explicit ScanReport(const QString &path);

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
    [[nodiscard]] bool hasReasons() const { return !m_reasons.isEmpty(); }
    /** Writes what was noted since the last call, if anything, under @p path. */
    void settle(const QString &path);
    /** Files and folders written so far. */
    [[nodiscard]] int count() const { return m_count; }

private:
    QFile m_file;
    QStringList m_reasons;
    int m_count = 0;
};

} // namespace quaverly
