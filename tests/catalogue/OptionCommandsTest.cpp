// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/OptionCommands.h"
#include "catalogue/Options.h"
#include "platform/options/OptionsStore.h"
#include "support/Limits.h"
#include "support/QtPrinters.h"
#include "support/ScriptedDesktop.h"
#include "support/store/StoreFixture.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

const auto Remember = u"Remember window size between sessions"_s;
const auto Forget = u"Do not remember window size between sessions"_s;
const auto Forbid = u"Do not allow files to be renamed or moved ..."_s;
const auto Allow = u"Allow files to be renamed or moved"_s;

class FakeOptionsScreen final : public OptionsScreen
{
public:
    QString mnuOptionWindowSize() const override { return windowSize; }
    void set_mnuOptionWindowSize(const QString &caption) override { windowSize = caption; }
    QString mnuOptionFileRename() const override { return fileRename; }
    void set_mnuOptionFileRename(const QString &caption) override { fileRename = caption; }
    quint32 BackColor() const override { return color; }
    void set_BackColor(quint32 number) override { color = number; }
    void applyLook(const ModeLook &applied) override { look = applied; }
    void enableModes(bool tabletMode, bool desktopMode) override
    {
        tabletEnabled = tabletMode;
        desktopEnabled = desktopMode;
    }

    QString windowSize;
    QString fileRename;
    quint32 color = 0;
    ModeLook look;
    bool tabletEnabled = false;
    bool desktopEnabled = false;
};

/** The options of a loaded main screen; restart() loads a new one over what was kept. */
class TheOptions : public ::testing::Test
{
protected:
    explicit TheOptions(const QString &file = {})
        : store(file.isEmpty() ? catalogue.path(u"options.ini"_s) : file)
    {
        restart();
    }
    void restart()
    {
        if (catalogue.catalogue().CatalogueDb)
            catalogue.close();
        catalogue.open();
        screen = {};
        options = {};
        commands.load();
    }
    QString kept(const char16_t *key) { return option(store, key); }
    QString row(const char *type)
    {
        const QStringList names = catalogue.column(
            u"Select Name from tblSettings Where Type='%1'"_s.arg(QString::fromLatin1(type)));
        EXPECT_LE(names.size(), 1) << type;
        return names.value(0, u"none"_s);
    }
    void expectMode(bool tablet)
    {
        EXPECT_EQ(options.TabletActive, tablet);
        EXPECT_EQ(screen.tabletEnabled, !tablet);
        EXPECT_EQ(screen.desktopEnabled, tablet);
        EXPECT_EQ(screen.look.rowHeight, tablet ? 400 : 225.0709);
        EXPECT_EQ(screen.look.fontName, u"Arial"_s);
        EXPECT_EQ(screen.look.fontSize, tablet ? 14 : 8);
        EXPECT_EQ(screen.look.bold, !tablet);
        EXPECT_EQ(screen.look.locateHeight, tablet ? 400 : 285);
    }

    StoreFixture catalogue;
    ScriptedDesktop desktop;
    OptionsStore store;
    Options options;
    FakeOptionsScreen screen;
    OptionCommands commands{desktop, screen, options, store, catalogue.settings()};
};

TEST_F(TheOptions, WindowSizeFollowsItsCaption)
{
    EXPECT_EQ(screen.windowSize, Remember);
    for (const bool on : {true, false, true}) {
        commands.mnuOptionWindowSize_Click();
        EXPECT_EQ(kept(keys::RememberWindowSize), on ? u"-1"_s : u"0"_s);
        EXPECT_EQ(options.RememberWindowSize, on);
        EXPECT_EQ(screen.windowSize, on ? Forget : Remember);
    }
    restart();
    EXPECT_TRUE(options.RememberWindowSize);
    EXPECT_EQ(screen.windowSize, Forget);
}

TEST_F(TheOptions, ForbiddingRenamesAsksAndAllowingThemDoesNot)
{
    desktop.willAnswer(Answer::No);
    commands.mnuOptionFileRename_Click();
    EXPECT_EQ(screen.fileRename, Forbid);
    EXPECT_FALSE(options.FileRenameDisabled);
    EXPECT_EQ(kept(keys::FileRenameDisabled), QString());

    desktop.willAnswer(Answer::Yes);
    commands.mnuOptionFileRename_Click();
    const DesktopCall &question = desktop.lastCall();
    EXPECT_EQ(question.title, u"Do not allow files to be renamed or moved.  Are you sure?"_s);
    EXPECT_EQ(question.icon, Icon::Question);
    EXPECT_EQ(question.buttons, Buttons::YesNo);
    const QStringList paragraphs = question.text.split(u"\n\n"_s);
    ASSERT_EQ(paragraphs.size(), 3);
    EXPECT_EQ(paragraphs[0], u"This prevents Quaverly from renaming a music file on your computer when you "
                             "change it's File Name on the Edit screen."_s);
    EXPECT_TRUE(paragraphs[2].endsWith(u"sync manually. Are you sure you want to do this?"_s));
    EXPECT_EQ(kept(keys::FileRenameDisabled), u"-1"_s);
    EXPECT_TRUE(options.FileRenameDisabled);

    restart();
    EXPECT_TRUE(options.FileRenameDisabled);
    EXPECT_EQ(screen.fileRename, Allow);
    commands.mnuOptionFileRename_Click();
    EXPECT_EQ(screen.fileRename, Forbid);
    EXPECT_FALSE(options.FileRenameDisabled);
    EXPECT_EQ(kept(keys::FileRenameDisabled), u"0"_s);
}

TEST_F(TheOptions, ResettingBringsBothWarningsBack)
{
    saveOption(store, keys::FileNameWarning, u"1"_s);
    desktop.willSee(u"All warning messages will now appear."_s);
    commands.mnuOptionsWarningMessagesReset_Click();
    EXPECT_EQ(desktop.lastCall().title, u"Done"_s);
    EXPECT_EQ(kept(keys::FileNameWarning), u"0"_s);
    EXPECT_EQ(kept(keys::PathNameWarning), u"0"_s);
}

TEST_F(TheOptions, ColorsAreShownAndKeptInTheCatalogue)
{
    EXPECT_EQ(screen.color, 8421440U);
    desktop.willPickColor(std::nullopt);
    commands.SelectColor_Click();
    EXPECT_EQ(desktop.lastCall().color, 8421440U);
    EXPECT_EQ(row("BACKCOLOR"), u"none"_s);

    desktop.willPickColor(0x0000FF);
    commands.SelectColor_Click();
    EXPECT_EQ(screen.color, 255U);
    restart();
    EXPECT_EQ(row("BACKCOLOR"), u"255"_s);
    EXPECT_EQ(screen.color, 255U);

    commands.RestoreColor_Click();
    EXPECT_EQ(screen.color, 8421440U);
    EXPECT_EQ(row("BACKCOLOR"), u"8421440"_s);
    catalogue.db().Execute(u"Update tblSettings Set Name='teal' Where Type='BACKCOLOR'"_s);
    screen.color = 0;
    commands.load();
    EXPECT_EQ(screen.color, 8421440U);
}

TEST_F(TheOptions, TheModeIsKeptAndItsEntryDisabled)
{
    expectMode(false);
    for (const bool tablet : {true, false, true}) {
        tablet ? commands.TabletMode_Click() : commands.DesktopMode_Click();
        expectMode(tablet);
        EXPECT_EQ(row("TABLET"), tablet ? u"True"_s : u"False"_s);
        restart();
        expectMode(tablet);
    }
    commands.DesktopMode_Click();
    // The machine is a tablet: the catalogue's False does not change that.
    options.TabletActive = true;
    commands.load();
    expectMode(true);
}

/** Neither the options file nor the catalogue can be written. */
class TheReadOnlyOptions : public TheOptions
{
protected:
    TheReadOnlyOptions() : TheOptions(u"/proc/quaverly/options.ini"_s)
    {
        catalogue.close();
        QFile::setPermissions(catalogue.catalogue().DatabaseFile, QFile::ReadOwner | QFile::ReadOther);
        QFile::setPermissions(catalogue.folder(), QFile::ReadOwner | QFile::ExeOwner);
    }
};

TEST_F(TheReadOnlyOptions, StayAsTheyAreAndSayWhy)
{
    const OrdinaryUser user({catalogue.folder(), catalogue.catalogue().DatabaseFile});
    restart();
    screen.color = 1;
    const auto expectRefusal = [&](auto click, const QString &said) {
        desktop.willSee(said);
        (commands.*click)();
        EXPECT_EQ(desktop.lastCall().icon, Icon::Stop);
    };
    expectRefusal(&OptionCommands::mnuOptionWindowSize_Click, u"can't be saved"_s);
    expectRefusal(&OptionCommands::mnuOptionsWarningMessagesReset_Click, u"can't be saved"_s);
    expectRefusal(&OptionCommands::RestoreColor_Click, u"read-only"_s);
    expectRefusal(&OptionCommands::TabletMode_Click, u"read-only"_s);
    desktop.willAnswer(Answer::Yes);
    expectRefusal(&OptionCommands::mnuOptionFileRename_Click, u"can't be saved"_s);
    EXPECT_FALSE(options.RememberWindowSize);
    EXPECT_EQ(screen.windowSize, Remember);
    EXPECT_FALSE(options.FileRenameDisabled);
    EXPECT_EQ(screen.fileRename, Forbid);
    EXPECT_EQ(screen.color, 1U);
    expectMode(false);
    EXPECT_EQ(row("BACKCOLOR") + row("TABLET"), u"nonenone"_s);
}

} // namespace
