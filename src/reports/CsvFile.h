// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/store/Dao.h"

#include <QFile>
#include <QHash>

#include <functional>

namespace quaverly {

/** Stored dates in the system's short form, each day worked out once; what is no date stays. */
class ShortDates final
{
public:
    [[nodiscard]] QByteArrayView of(QByteArrayView stored);

private:
    QHash<QByteArray, QByteArray> m_days;
};

/**
 * Songs as comma-separated text in UTF-8: a line of headers, then a line a song, every field between double
 * quotes. What was written stays when writing fails.
 */
class CsvFile final
{
public:
    /** Replaces what was there. @throws dao::DaoError 70 or 75. */
    explicit CsvFile(const QString &path);

    /** All rows in their order; @p progress is told how many are done. @throws dao::DaoError. */
    void write(const dao::Recordset &songs, bool withNotes, const std::function<void(qint64)> &progress);
    /** Everything on the disk. @throws dao::DaoError. */
    void close();

private:
    void flush();

    QFile m_file;
    QByteArray m_out;
    ShortDates m_dates;
};

} // namespace quaverly
