// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quaverly {

class OptionsStore;
class SettingsRows;

/** What the user has chosen, and what the machine is, for the length of a run. */
struct Options
{
    QString ScreenFont;
    /** A whole number as text; "0" for no break by count. */
    QString RptLinesPerPage;
    bool RememberWindowSize = false;
    /** True keeps the editor from renaming and moving music files. */
    bool FileRenameDisabled = false;
    bool TabletActive = false;
    qint16 WindowsVersionMajor = 6;
    /** 1 shows the category screen after a new song. */
    qint16 AssignCategoryOnAdd = 0;
    /** RecordID of the template song, 0 without one. */
    qint64 TemplateRecordID = 0;
    /** True while the process was started with a music file. */
    bool PlayerOnlyMode = false;
};

/** Keys in the options store that several screens share. */
namespace keys {
inline constexpr char16_t Font[] = u"Font";
inline constexpr char16_t RptLinesPerPage[] = u"RptLinesPerPage";
inline constexpr char16_t DatabaseLocation[] = u"Database Location";
inline constexpr char16_t RememberWindowSize[] = u"Remember Window Size";
inline constexpr char16_t GridScreenTop[] = u"GridScreenTop";
inline constexpr char16_t GridScreenLeft[] = u"GridScreenLeft";
inline constexpr char16_t GridScreenWidth[] = u"GridScreenWidth";
inline constexpr char16_t GridScreenHeight[] = u"GridScreenHeight";
inline constexpr char16_t FileRenameDisabled[] = u"File Rename Disabled";
inline constexpr char16_t FileNameWarning[] = u"Checkbox FileName Change Warning";
inline constexpr char16_t PathNameWarning[] = u"Checkbox PathName Change Warning";
/** Megabytes that the copies of a catalogue may take; 0 or nothing for the rule. */
inline constexpr char16_t BackupLimit[] = u"Backup Limit";
/** Root of the maker's site; empty for the documentation that came with the program. */
inline constexpr char16_t WebSite[] = u"Web Site";
} // namespace keys

/** The text under a key of the section "Options"; empty when there is none. */
[[nodiscard]] QString option(const OptionsStore &store, const char16_t *key);
/** Flags are kept as -1 and 0; anything that is no number counts as False. */
[[nodiscard]] bool flagOption(const OptionsStore &store, const char16_t *key);
/** @throws dao::DaoError 75 when the store can't be written. */
void saveOption(OptionsStore &store, const char16_t *key, const QString &value);
void saveFlagOption(OptionsStore &store, const char16_t *key, bool on);

/** What the main screen loads: RememberWindowSize and FileRenameDisabled. */
void loadUserOptions(const OptionsStore &store, Options &options);
/** What goes with the catalogue: AssignCategoryOnAdd and TemplateRecordID. */
void loadCatalogueOptions(const SettingsRows &rows, Options &options);

} // namespace quaverly
