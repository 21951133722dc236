// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"

#include <QList>
#include <QString>

#include <optional>

namespace quaverly {

struct Category
{
    qint64 CategoryNumber = 0;
    /** The name that is shown everywhere. */
    QString CategoryDesc;

    bool operator==(const Category &) const = default;
};

/**
 * The categories of the catalogue and the songs in them. Every operation may throw dao::DaoError: 3167 for a
 * category that is gone, 3163 for a name that is too long.
 */
class CategoryStore final
{
public:
    explicit CategoryStore(Catalogue &catalogue) : m_catalogue(catalogue) {}

    /** In the order of their names. */
    [[nodiscard]] QList<Category> categories() const;
    /** The first whose name begins with that letter, in any case. */
    [[nodiscard]] std::optional<qint64> firstWith(QChar letter) const;
    /** In any case. @p name is one without double quotes. */
    [[nodiscard]] bool isTaken(const QString &name) const;
    /** @throws 3167 unless there is such a category. */
    void requireCategory(qint64 number) const;

    /** The new one's number, which the store allots. */
    qint64 add(const QString &name);
    void rename(qint64 number, const QString &name);
    /** Its assignments with it, or nothing; the songs stay. */
    void remove(qint64 number);
    /** Songs of the catalogue, without assignments that a deleted one left. */
    [[nodiscard]] qint64 songsIn(qint64 number) const;

    /** In the order of their names; one that is gone has an empty name. */
    [[nodiscard]] QList<Category> categoriesOf(qint64 song) const;
    /** @throws 3022 when it is assigned already. */
    void assign(qint64 song, qint64 number);
    /** Nothing happens when it is not assigned. */
    void unassign(qint64 song, qint64 number);

private:
    [[nodiscard]] dao::Database &database() const { return *m_catalogue.CatalogueDb; }
    [[nodiscard]] std::unique_ptr<dao::Recordset> dynaset(const QString &sql) const;
    [[nodiscard]] std::unique_ptr<dao::Recordset> rowOf(qint64 number) const;

    Catalogue &m_catalogue;
};

} // namespace quaverly
