// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Options.h"
#include "catalogue/frmDatabaseLocation.h"
#include "catalogue/frmFontForm.h"
#include "catalogue/frmPassword.h"
#include "platform/options/OptionsStore.h"
#include "support/ScriptedDesktop.h"
#include "support/UserActs.h"
#include "support/store/StoreFixture.h"

#include <QDir>
#include <QFontDatabase>
#include <QPointer>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

/** The options of a user on this machine; the application's font is put back afterwards. */
class OptionScreens : public ::testing::Test
{
protected:
    ~OptionScreens() override { QApplication::setFont(font); }
    void useUnwritableStore() { store = OptionsStore(u"/proc/quaverly/options.ini"_s); }
    /** The dialog of a screen that was shown; it goes with the test if it is still up. */
    template <typename Screen> QPointer<Screen> shown(Screen *screen)
    {
        screen->showModally();
        EXPECT_TRUE(screen->isVisible() && screen->isModal());
        return screen;
    }
    static void expectGone(const QPointer<QDialog> &screen)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return screen.isNull(); }));
    }
    void expectForFingers(const QWidget &screen)
    {
        for (const auto *button : screen.findChildren<QPushButton *>())
            EXPECT_GE(button->height(), 44) << button->objectName().toStdString();
    }

    StoreFixture catalogue;
    ScriptedDesktop desktop;
    OptionsStore store{catalogue.path(u"options.ini"_s)};
    Options options;
    QWidget owner;
    QFont font = QApplication::font();
};

class TheFontForm : public OptionScreens
{
protected:
    TheFontForm() { options.ScreenFont = u"No Such Font"_s; }
    QPointer<frmFontForm> open() { return shown(new frmFontForm(desktop, options, store, &owner)); }
};

TEST_F(TheFontForm, OffersAllFontsAndShowsTheChosenOneAtOnce)
{
    QLabel openScreen(u"text"_s, &owner);
    QLabel smallFonts(u"text"_s, &owner);
    smallFonts.setFont(QFont(u"Small Fonts"_s, 7));
    const QString family = QFontDatabase::families().constLast();
    const QPointer<frmFontForm> form = open();
    auto *fonts = child<QComboBox>(*form, u"cmbFonts"_s);
    EXPECT_EQ(fonts->count(), QFontDatabase::families().size());
    EXPECT_EQ(fonts->currentText(), u"No Such Font"_s);
    retype(fonts, family.toUpper());
    EXPECT_EQ(child<QLabel>(*form, u"lblPreview"_s)->font().family().toUpper(), family.toUpper());
    EXPECT_EQ(QApplication::font().family(), font.family());
    key(fonts, Qt::Key_Return);
    expectGone(form.data());
    EXPECT_EQ(option(store, keys::Font), family);
    EXPECT_EQ(options.ScreenFont, family);
    EXPECT_EQ(openScreen.font().family(), family);
    EXPECT_EQ(openScreen.font().pointSizeF(), font.pointSizeF());
    EXPECT_EQ(smallFonts.font().family(), u"Small Fonts"_s);
}

TEST_F(TheFontForm, ChangesNothingWithoutANameOrWhereItCannotBeKept)
{
    QPointer<frmFontForm> form = open();
    retype(child<QComboBox>(*form, u"cmbFonts"_s), u"  "_s);
    click(*form, u"cmdOK"_s);
    expectGone(form.data());
    EXPECT_EQ(option(store, keys::Font), QString());
    useUnwritableStore();
    options.TabletActive = true;
    form = open();
    expectForFingers(*form);
    retype(child<QComboBox>(*form, u"cmbFonts"_s), u"Other"_s);
    desktop.willSee(u"can't be saved"_s);
    click(*form, u"cmdOK"_s);
    ASSERT_TRUE(form && form->isVisible());
    click(*form, u"cmdCancel"_s);
    EXPECT_EQ(options.ScreenFont, u"No Such Font"_s);
    EXPECT_EQ(QApplication::font(), font);
}

class TheLocationScreen : public OptionScreens
{
protected:
    QPointer<frmDatabaseLocation> open(bool tablet = false)
    {
        const DatabaseLocation location(desktop, catalogue.catalogue(), store, lastFolder);
        return shown(new frmDatabaseLocation(desktop, location, tablet, &owner));
    }
    QString makeOther(const QString &name)
    {
        QDir(catalogue.folder()).mkdir(name);
        catalogue.engine().CreateEmpty(catalogue.path(name + u"/QVdata.mdb"_s));
        return catalogue.path(name) + u'/';
    }
    QString kept() { return option(store, keys::DatabaseLocation); }

    QString lastFolder;
};

TEST_F(TheLocationScreen, KeepsTheFolderThatIsBrowsedOrTyped)
{
    const QString first = makeOther(u"first"_s);
    const QString second = makeOther(u"sécond & two"_s);
    QPointer<frmDatabaseLocation> form = open();
    auto *path = child<QLineEdit>(*form, u"txtPathName"_s);
    EXPECT_EQ(path->text(), catalogue.folder());
    desktop.willBrowse(first);
    click(*form, u"cmdBrowsePath"_s);
    EXPECT_EQ(desktop.lastCall().startFolder, catalogue.folder());
    desktop.willBrowse({});
    click(*form, u"cmdBrowsePath"_s);
    EXPECT_EQ(desktop.lastCall().startFolder, first);
    EXPECT_EQ(path->text(), first);
    desktop.willSee(u"Database Location Changed.  You must exit and restart Quaverly before this change"_s);
    click(*form, u"cmdSave"_s);
    expectGone(form.data());
    EXPECT_EQ(kept(), first);
    EXPECT_EQ(catalogue.catalogue().DatabaseFolder, catalogue.folder());

    form = open();
    retype(child<QLineEdit>(*form, u"txtPathName"_s), second.chopped(1));
    desktop.willSee();
    key(child<QLineEdit>(*form, u"txtPathName"_s), Qt::Key_Return);
    EXPECT_EQ(kept(), second);
}

TEST_F(TheLocationScreen, RefusesFoldersWithoutACatalogue)
{
    const QPointer<frmDatabaseLocation> form = open(true);
    expectForFingers(*form);
    const QString good = makeOther(u"good"_s);
    QDir(catalogue.folder()).mkdir(u"empty"_s);
    const std::pair<QString, QString> cases[] = {
        {catalogue.path(u"nowhere/"_s), u"Folder not found"_s},
        {{}, u"Folder not found"_s},
        {good + u"QVdata.mdb"_s, u"Folder not found"_s},
        {catalogue.path(u"empty/"_s), u"Database file not found"_s},
    };
    for (const auto &[folder, title] : cases) {
        SCOPED_TRACE(folder.toStdString());
        retype(child<QLineEdit>(*form, u"txtPathName"_s), folder);
        desktop.willSee();
        click(*form, u"cmdSave"_s);
        EXPECT_EQ(desktop.lastCall().title, title);
        ASSERT_TRUE(form && form->isVisible());
    }
    useUnwritableStore();
    retype(child<QLineEdit>(*form, u"txtPathName"_s), good);
    desktop.willSee(u"can't be saved"_s);
    click(*form, u"cmdSave"_s);
    ASSERT_TRUE(form && form->isVisible());
    EXPECT_EQ(kept(), QString());
}

class ThePasswordScreen : public OptionScreens
{
protected:
    /** What is typed into the fields from the top, those that are shown. */
    void type(const QStringList &texts)
    {
        if (!form)
            form = shown(
                new frmPassword(desktop, PasswordChange(desktop, catalogue.catalogue()), false, &owner));
        QStringList fields{u"txtNewPassword"_s, u"txtRepeat"_s};
        if (texts.size() > 2)
            fields.prepend(u"txtOldPassword"_s);
        EXPECT_EQ(child<QLineEdit>(*form, u"txtOldPassword"_s)->isVisible(), texts.size() > 2);
        for (qsizetype i = 0; i < texts.size(); ++i)
            retype(child<QLineEdit>(*form, fields[i]), texts[i]);
        click(*form, u"cmdSave"_s);
    }
    bool opensWith(const QString &password)
    {
        try {
            static_cast<void>(
                catalogue.engine().OpenDatabase(catalogue.catalogue().DatabaseFile, u";pwd="_s + password));
            return true;
        } catch (const dao::DaoError &) {
            return false;
        }
    }

    QPointer<frmPassword> form;
};

TEST_F(ThePasswordScreen, SetsChangesAndRemovesIt)
{
    desktop.willSee(u"not the same"_s).willSee(u"Type a new password."_s).willSee(u"The password is set."_s);
    type({u"Ä;one"_s, u"Ä;One"_s});
    type({{}, {}});
    EXPECT_TRUE(child<QLabel>(*form, u"lblMessage"_s)->text().contains(u"does not encrypt"_s));
    EXPECT_EQ(child<QLineEdit>(*form, u"txtNewPassword"_s)->echoMode(), QLineEdit::Password);
    type({u"Ä;one"_s, u"Ä;one"_s});
    expectGone(form.data());
    EXPECT_TRUE(opensWith(u"Ä;one"_s) && !opensWith({}));

    desktop.willSee(u"not right"_s).willSee(u"The password is set."_s);
    type({u"wrong"_s, u"two"_s, u"two"_s});
    EXPECT_TRUE(opensWith(u"Ä;one"_s));
    type({u"Ä;one"_s, u"two"_s, u"two"_s});
    expectGone(form.data());
    EXPECT_TRUE(opensWith(u"two"_s) && !opensWith(u"Ä;one"_s));

    desktop.willSee(u"not right"_s).willSee(u"The password is removed."_s);
    type({{}, {}, {}});
    type({u"two"_s, {}, {}});
    expectGone(form.data());
    EXPECT_TRUE(opensWith({}));
}

} // namespace
