// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/OptionCommands.h"

#include "catalogue/Options.h"
#include "catalogue/SettingsRows.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

QString noRenamingQuestion()
{
    const QString product = QString::fromUtf16(ProductName);
    return u"This prevents "_s + product +
           u" from renaming a music file on your computer when you change it's File Name on the Edit "
           "screen.\n\nThis also prevents "_s +
           product +
           u" from moving a music file to a different folder when you change it's Path Name on the Edit "
           "screen.\n\nBy choosing this option, you are preventing "_s +
           product +
           u" from keeping your database in sync with the files on your computer.  You must be careful to "
           "keep files in sync manually. Are you sure you want to do this?"_s;
}

} // namespace

ModeLook tabletLook()
{
    return {400, u"Arial"_s, 14, false, 400};
}

ModeLook desktopLook()
{
    return {225.0709, u"Arial"_s, 8, true, 285};
}

OptionCommands::OptionCommands(Desktop &desktop, OptionsScreen &screen, Options &options, OptionsStore &store,
                               SettingsRows &rows)
    : m_desktop(desktop), m_screen(screen), m_options(options), m_store(store), m_rows(rows)
{}

void OptionCommands::load()
{
    loadUserOptions(m_store, m_options);
    showWindowSizeCaption();
    showFileRenameCaption();
    m_screen.set_BackColor(m_rows.backColor().value_or(OriginalBackColor));
    // A False in the catalogue does not make a desktop of a tablet: the machine decides then.
    m_options.TabletActive = m_options.TabletActive || m_rows.tablet();
    showMode();
}

void OptionCommands::mnuOptionWindowSize_Click()
{
    run(u"Remember Window Size"_s, [this] {
        const bool remember = m_screen.mnuOptionWindowSize() == QStringView(captions::RememberWindowSize);
        saveFlagOption(m_store, keys::RememberWindowSize, remember);
        m_options.RememberWindowSize = remember;
        showWindowSizeCaption();
    });
}

void OptionCommands::mnuOptionFileRename_Click()
{
    run(u"Renaming and Moving Files"_s, [this] {
        const bool forbid = m_screen.mnuOptionFileRename() == QStringView(captions::ForbidFileRename);
        if (forbid && !confirmsNoRenaming())
            return;
        saveFlagOption(m_store, keys::FileRenameDisabled, forbid);
        m_options.FileRenameDisabled = forbid;
        showFileRenameCaption();
    });
}

bool OptionCommands::confirmsNoRenaming()
{
    return m_desktop.MessageBox(noRenamingQuestion(),
                                u"Do not allow files to be renamed or moved.  Are you sure?"_s,
                                Icon::Question, Buttons::YesNo) == Answer::Yes;
}

void OptionCommands::mnuOptionsWarningMessagesReset_Click()
{
    run(u"Reset All Warning Messages"_s, [this] {
        saveOption(m_store, keys::FileNameWarning, u"0"_s);
        saveOption(m_store, keys::PathNameWarning, u"0"_s);
        m_desktop.MessageBox(u"All warning messages will now appear."_s, u"Done"_s);
    });
}

void OptionCommands::SelectColor_Click()
{
    run(u"Select Background Color"_s, [this] {
        if (const std::optional<quint32> color = m_desktop.ShowColor(m_screen.BackColor()))
            changeColor(*color);
    });
}

void OptionCommands::RestoreColor_Click()
{
    run(u"Restore Original Color"_s, [this] { changeColor(OriginalBackColor); });
}

void OptionCommands::TabletMode_Click()
{
    run(u"Set to Tablet Mode"_s, [this] { changeMode(true); });
}

void OptionCommands::DesktopMode_Click()
{
    run(u"Set to Desktop Mode"_s, [this] { changeMode(false); });
}

void OptionCommands::run(const QString &title, const std::function<void()> &command)
{
    guarded(m_desktop, title, command);
}

void OptionCommands::showWindowSizeCaption()
{
    m_screen.set_mnuOptionWindowSize(QString::fromUtf16(
        m_options.RememberWindowSize ? captions::ForgetWindowSize : captions::RememberWindowSize));
}

void OptionCommands::showFileRenameCaption()
{
    m_screen.set_mnuOptionFileRename(QString::fromUtf16(
        m_options.FileRenameDisabled ? captions::AllowFileRename : captions::ForbidFileRename));
}

void OptionCommands::showMode()
{
    m_screen.enableModes(!m_options.TabletActive, m_options.TabletActive);
    m_screen.applyLook(m_options.TabletActive ? tabletLook() : desktopLook());
}

void OptionCommands::changeColor(quint32 color)
{
    m_rows.storeBackColor(color);
    m_screen.set_BackColor(color);
}

void OptionCommands::changeMode(bool tablet)
{
    m_rows.storeTablet(tablet);
    m_options.TabletActive = tablet;
    showMode();
}

} // namespace quaverly
