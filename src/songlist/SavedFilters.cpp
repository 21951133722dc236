// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/SavedFilters.h"

#include "catalogue/SettingsRows.h"
#include "desktop/Desktop.h"
#include "platform/text/Text.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int LongestSaved = 100;
/** Shorter than a saved one may be: that is meant. */
constexpr int LongestRenamed = 50;
constexpr QChar AcuteAccent = u'\u00B4';

QString kind()
{
    return QString::fromUtf16(settings::Filter);
}

/** No half of a character is left at the end. */
QString cut(const QString &name, int longest)
{
    return name.left(name.at(longest - 1).isHighSurrogate() ? longest - 1 : longest);
}

} // namespace

QStringList SavedFilters::names() const
{
    QStringList names;
    for (const SettingsRow &row : m_settings.all(kind())) {
        if (isGreaterThanBlank(row.Name) && !row.Name.contains(QChar::Null))
            names.append(row.Name);
    }
    return names;
}

std::optional<QString> SavedFilters::criteria(const QString &name) const
{
    const auto row = m_settings.find(kind(), name);
    return row ? std::optional(row->Setting8) : std::nullopt;
}

QString SavedFilters::askName(const QString &prompt, const QString &offered, int longest)
{
    QString name =
        m_desktop.InputPrompt(prompt + u"\n\nDescriptions can be up to %1 characters long."_s.arg(longest),
                              u"Filter Name"_s, offered);
    // No statement can look for one with these in it.
    name.remove(QChar::Null);
    if (name.size() > longest) {
        name = cut(name, longest);
        // The title is the same for both limits.
        m_desktop.MessageBox(
            u"The name you entered for this Filter has been truncated to the maximum length of %1 characters."_s
                .arg(longest),
            u"Name truncated to 50 characters"_s, Icon::Information);
    }
    return ReplaceText(name, u"'"_s, AcuteAccent);
}

std::optional<QString> SavedFilters::save(const QString &criteria, const QString &offeredName)
{
    const QString name =
        askName(u"Enter a descriptive name for this Filter, then press the OK button to save it."_s,
                offeredName, LongestSaved);
    if (!isGreaterThanBlank(name))
        return std::nullopt;
    if (m_settings.find(kind(), name) &&
        m_desktop.MessageBox(u"Replace existing Filter?"_s, u"Update confirmation"_s, Icon::Question,
                             Buttons::YesNo) != Answer::Yes)
        return std::nullopt;
    m_settings.storeNamed(kind(), name, criteria);
    return name;
}

std::optional<QString> SavedFilters::rename(const QString &name)
{
    if (name.isEmpty()) {
        m_desktop.MessageBox(u"You must select a Filter to rename."_s, u"No Filter selected to rename"_s,
                             Icon::Stop);
        return std::nullopt;
    }
    const QString newName = askName(
        u"Enter a new name for this Filter, then press the OK button to save it."_s, {}, LongestRenamed);
    if (!isGreaterThanBlank(newName))
        return std::nullopt;
    // Another one's, that is: the same name in other letters may be given.
    if (const auto other = m_settings.find(kind(), newName);
        other && other->Name.compare(name, Qt::CaseInsensitive) != 0) {
        m_desktop.MessageBox(u"There is another Filter of this name."_s, u"Filter not renamed"_s,
                             Icon::Exclamation);
        return std::nullopt;
    }
    if (!m_settings.rename(kind(), name, newName))
        return std::nullopt;
    return newName;
}

bool SavedFilters::remove(const QString &name)
{
    if (name.isEmpty()) {
        m_desktop.MessageBox(u"You must select a previously saved Filter to delete."_s,
                             u"No Filter selected to delete"_s, Icon::Stop);
        return false;
    }
    const Answer answer =
        m_desktop.MessageBox(u"Are you sure you want to delete filter: "_s + name + u"?"_s,
                             u"Delete Confirmation"_s, Icon::Question, Buttons::YesNo, Answer::No);
    if (answer != Answer::Yes)
        return false;
    m_settings.remove(kind(), name);
    return true;
}

} // namespace quaverly
