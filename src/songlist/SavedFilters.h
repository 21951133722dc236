// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quaverly {

class Desktop;
class SettingsRows;

/**
 * The criteria that the user keeps under names. Asks for the names and what goes with that; every
 * operation may throw dao::DaoError, and has then changed nothing.
 */
class SavedFilters final
{
public:
    SavedFilters(SettingsRows &settings, Desktop &desktop) : m_settings(settings), m_desktop(desktop) {}

    /** In the order in which they were saved. Rows that no user can have named are passed over. */
    [[nodiscard]] QStringList names() const;
    /** The text as it was saved; nothing when the filter has gone. */
    [[nodiscard]] std::optional<QString> criteria(const QString &name) const;

    /** The name under which the text is kept now, or nothing when the user thought better of it. */
    std::optional<QString> save(const QString &criteria, const QString &offeredName);
    /** The new name, or nothing. The empty name stands for no filter: the user is told to select one. */
    std::optional<QString> rename(const QString &name);
    /** False when the user said no; the empty name as above. */
    bool remove(const QString &name);

private:
    [[nodiscard]] QString askName(const QString &prompt, const QString &offered, int longest);

    SettingsRows &m_settings;
    Desktop &m_desktop;
};

} // namespace quaverly
