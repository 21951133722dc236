// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Options.h"

#include "catalogue/SettingsRows.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

QString option(const OptionsStore &store, const char16_t *key)
{
    return store.GetSetting(QString::fromUtf16(OptionsSection), QString::fromUtf16(key));
}

bool flagOption(const OptionsStore &store, const char16_t *key)
{
    return isTrueText(option(store, key));
}

void saveOption(OptionsStore &store, const char16_t *key, const QString &value)
{
    store.SaveSetting(QString::fromUtf16(OptionsSection), QString::fromUtf16(key), value);
}

void saveFlagOption(OptionsStore &store, const char16_t *key, bool on)
{
    saveOption(store, key, on ? u"-1"_s : u"0"_s);
}

void loadUserOptions(const OptionsStore &store, Options &options)
{
    options.RememberWindowSize = flagOption(store, keys::RememberWindowSize);
    options.FileRenameDisabled = flagOption(store, keys::FileRenameDisabled);
}

void loadCatalogueOptions(const SettingsRows &rows, Options &options)
{
    options.AssignCategoryOnAdd = rows.assignCategoryOnAdd();
    options.TemplateRecordID = rows.templateRecordID();
}

} // namespace quaverly
