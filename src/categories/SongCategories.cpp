// SPDX-License-Identifier: GPL-3.0-or-later
#include "categories/SongCategories.h"

#include "desktop/Guard.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr char16_t Title[] = u"Assign Current Song to a Category";

ErrorBox plainBox()
{
    ErrorBox box = withErrorNumber(u".  Error number:"_s);
    box.icon = Icon::None;
    return box;
}

} // namespace

void SongCategories::assign(qint64 number)
{
    const auto handler = [&] {
        try {
            m_store.assign(m_song, number);
        } catch (const dao::DaoError &error) {
            // A statement that the store can't read is passed over without a word, and that is meant.
            if (error.number == dao::SyntaxError)
                return;
            if (error.number != dao::DuplicateKey)
                throw;
            m_desktop.MessageBox(u"Category is already assigned to this record."_s, u"Can't assign twice"_s,
                                 Icon::Stop);
        }
    };
    guarded(m_desktop, QString::fromUtf16(Title), handler, plainBox());
}

void SongCategories::remove(qint64 number)
{
    guarded(
        m_desktop, QString::fromUtf16(Title), [&] { m_store.unassign(m_song, number); }, plainBox());
}

} // namespace quaverly
