// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/shell/FileStamp.h"
#include "platform/store/Dao.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quaverly {

/** The fields of a song that are read from its file, in an order that only grows. */
[[nodiscard]] std::span<const QLatin1StringView> fieldsFromFile();

/**
 * What a file held when it was read last, field by field: not the texts, only enough to tell whether a text
 * is still the same.
 */
class TagsRead final
{
public:
    TagsRead() = default;
    /** As text() gave it. */
    explicit TagsRead(QString stored) : m_text(std::move(stored)) {}
    /** @p textOf gives each field's text; a Null is empty. */
    [[nodiscard]] static TagsRead of(const std::function<QString(const QString &field)> &textOf);

    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] bool isKnown() const { return !m_text.isEmpty(); }
    /** Nothing when the field at that place of fieldsFromFile() wasn't read then. */
    [[nodiscard]] std::optional<bool> was(int field, const QString &text) const;
    /** What stands for a field's text, in few characters. */
    [[nodiscard]] QString ofField(QLatin1StringView field) const;
    bool operator==(const TagsRead &) const = default;

private:
    QString m_text;
};

/** What is known of a song's file. */
struct FileFact
{
    qint64 recordId = 0;
    shell::FileStamp stamp;
    /** As shell::soundHash gives it; empty when it was not asked for yet. */
    QString sound;
    TagsRead tags;
};

/**
 * The table of what is known of each song's file. A fact speaks of a file with that size and time: one that
 * no longer fits costs another reading of the file, and no more. So nobody needs to keep it in step with what
 * is done to the rows, and the journal leaves it alone. Every operation may throw dao::DaoError.
 */
class FileFacts final
{
public:
    /** @p database outlives this object, and no other catalogue is opened meanwhile. */
    explicit FileFacts(dao::Database &database);

    /** Of a song that has none yet. */
    void add(const FileFact &fact);
    /** Instead of what was known of that song, if anything. */
    void put(const FileFact &fact);
    [[nodiscard]] std::optional<FileFact> of(qint64 recordId);
    /** Drops those of songs that are gone. */
    void tidy();

    struct Stamp
    {
        qint64 recordId = 0;
        shell::FileStamp stamp;
    };
    /** Of the songs from @p first to @p last, in the order of their keys. */
    [[nodiscard]] std::vector<Stamp> stamps(qint64 first, qint64 last);

private:
    [[nodiscard]] dao::Recordset &rows();
    [[nodiscard]] bool seek(qint64 recordId);
    void write(const FileFact &fact);

    dao::Database &m_database;
    std::unique_ptr<dao::Recordset> m_rows;
};

} // namespace quaverly
