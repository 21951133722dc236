// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryStore.h"

namespace quaverly {

class Desktop;

/** Puts one song into categories and takes it out; whatever the store refuses is told in the command's own
 * words. */
class SongCategories final
{
public:
    SongCategories(Desktop &desktop, CategoryStore &store, qint64 song)
        : m_desktop(desktop), m_store(store), m_song(song)
    {}

    /** @throws dao::DaoError. */
    [[nodiscard]] QList<Category> categories() const { return m_store.categoriesOf(m_song); }
    void assign(qint64 number);
    void remove(qint64 number);

private:
    Desktop &m_desktop;
    CategoryStore &m_store;
    qint64 m_song;
};

} // namespace quaverly
