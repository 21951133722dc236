// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class Desktop;
class OptionsStore;
struct Catalogue;

/** Where the program looks for its catalogue at the next start. */
class DatabaseLocation final
{
public:
    /**
     * @p lastFolder is the folder browsed last, empty before the first time; it takes what the user
     * chooses. All references outlive this object.
     */
    DatabaseLocation(Desktop &desktop, const Catalogue &catalogue, OptionsStore &store, QString &lastFolder);

    /** The text that the screen explains itself with. */
    [[nodiscard]] static QString caution();
    /** The folder in force. */
    [[nodiscard]] QString current() const;

    /** The folder that the user shows, or the empty text on cancel. */
    [[nodiscard]] QString browse();
    /**
     * Keeps a folder.
     * True when the screen is done; otherwise the user was told what is wrong with the folder.
     * @throws dao::DaoError 75 when it can't be kept.
     */
    [[nodiscard]] bool save(const QString &typed);

private:
    Desktop &m_desktop;
    const Catalogue &m_catalogue;
    OptionsStore &m_store;
    QString &m_lastFolder;
};

} // namespace quaverly
