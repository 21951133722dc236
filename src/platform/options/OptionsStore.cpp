// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/options/OptionsStore.h"

#include "platform/options/Folders.h"
#include "platform/store/DaoError.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString entry(const QString &section, const QString &key)
{
    return section + u'/' + key;
}

} // namespace

OptionsStore::OptionsStore() : m_file(folders::config() + u"Quaverly.ini"_s)
{}

QString OptionsStore::GetSetting(const QString &section, const QString &key,
                                 const QString &defaultValue) const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    const QVariant value = settings.value(entry(section, key));
    if (!value.isValid())
        return defaultValue;
    // A value edited by hand reads as a list when it holds a comma and stands without quotes.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u", "_s) : value.toString();
}

void OptionsStore::SaveSetting(const QString &section, const QString &key, const QString &value)
{
    QSettings settings(m_file, QSettings::IniFormat);
    // Asked first: a file that is damaged as well reports nothing but the damage afterwards.
    bool saved = settings.isWritable();
    if (saved) {
        settings.setValue(entry(section, key), value);
        settings.sync();
        saved = settings.status() != QSettings::AccessError;
    }
    if (!saved) {
        throw dao::DaoError(dao::PathFileAccess,
                            u"The option \"%1\" can't be saved: %2 can't be written."_s.arg(key, m_file));
    }
}

} // namespace quaverly
