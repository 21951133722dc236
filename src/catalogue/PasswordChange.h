// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class Desktop;
struct Catalogue;

/** What the user typed to set, change or remove the catalogue's password. */
struct TypedPasswords
{
    /** The one in force; empty when there is none. */
    QString old;
    /** Empty to have none. */
    QString wanted;
    QString repeated;
};

/** Sets, changes and removes the password that the catalogue is opened with. */
class PasswordChange final
{
public:
    /** All references outlive this object. */
    PasswordChange(Desktop &desktop, Catalogue &catalogue) : m_desktop(desktop), m_catalogue(catalogue) {}

    /** The text that the screen explains itself with. */
    [[nodiscard]] static QString explanation(bool hasPassword);
    [[nodiscard]] bool hasPassword() const;
    /**
     * True when it was done; otherwise the user was told what was typed wrong, and nothing has changed.
     * @throws dao::DaoError as writing to the catalogue does
     */
    [[nodiscard]] bool save(const TypedPasswords &typed);

private:
    [[nodiscard]] bool refuse(const QString &why);

    Desktop &m_desktop;
    Catalogue &m_catalogue;
};

} // namespace quaverly
