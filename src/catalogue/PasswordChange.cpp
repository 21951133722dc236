// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/PasswordChange.h"

#include "catalogue/Catalogue.h"
#include "desktop/Desktop.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

const auto Title = u"Password"_s;

} // namespace

QString PasswordChange::explanation(bool hasPassword)
{
    const QString how = hasPassword
                            ? u"This database has a password.  To change it, type it and then the new one "
                              "twice.  To remove it, leave the new one empty."_s
                            : u"This database has no password.  To set one, type it twice."_s;
    return how + u"\n\nThe password is asked for when the database is opened, and keeps others from opening "
                 "it with this program.  It does not encrypt the file: other programs can still read it.  "
                 "A forgotten password cannot be told or reset."_s;
}

bool PasswordChange::hasPassword() const
{
    return m_catalogue.CatalogueDb->hasPassword();
}

bool PasswordChange::save(const TypedPasswords &typed)
{
    if (typed.wanted != typed.repeated)
        return refuse(u"The two new passwords are not the same.  Type them once more."_s);
    if (typed.wanted.isEmpty() && !hasPassword())
        return refuse(u"Type a new password."_s);
    try {
        m_catalogue.CatalogueDb->NewPassword(typed.old, typed.wanted);
    } catch (const dao::DaoError &error) {
        if (error.number != dao::InvalidPassword)
            throw;
        return refuse(u"The present password is not right.  It stays in force."_s);
    }
    m_desktop.MessageBox(typed.wanted.isEmpty()
                             ? u"The password is removed."_s
                             : u"The password is set.  It is asked for when this database is opened."_s,
                         Title, Icon::Information);
    return true;
}

bool PasswordChange::refuse(const QString &why)
{
    m_desktop.MessageBox(why, Title, Icon::Exclamation);
    return false;
}

} // namespace quaverly
