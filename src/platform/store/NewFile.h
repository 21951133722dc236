// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <utility>

namespace dao {

/** A new file of the store's; with what SQLite keeps beside it, it goes again unless it is kept. */
class NewFile final
{
public:
    explicit NewFile(QString path) : m_path(std::move(path)) {}
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    /** @throws 75 */
    void putOnDisk() const;
    void keep() { m_kept = true; }
    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
    bool m_kept = false;
};

/** @throws 58 */
void refuseExisting(const QString &path);

} // namespace dao
