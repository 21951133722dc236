// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SettingsRows.h"
#include "catalogue/Options.h"
#include "platform/options/OptionsStore.h"
#include "support/QtPrinters.h"
#include "support/store/StoreFixture.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class Settings : public ::testing::Test
{
protected:
    /** A row whose Name is @p name, as any program may have left it. */
    void put(const char16_t *type, const QVariant &name)
    {
        const auto table = store.db().OpenRecordset(u"tblSettings"_s);
        table->AddNew();
        table->setValue(u"Type"_s, QString::fromUtf16(type));
        table->setValue(u"Name"_s, name);
        table->Update();
    }
    qint64 rowCount() { return store.valueOf(u"Select count(*) from tblSettings"_s).toLongLong(); }
    void clear() { store.db().Execute(u"Delete * from tblSettings"_s); }

    StoreFixture store;
    SettingsRows &rows = store.settings();
};

TEST_F(Settings, MissingRowsGiveTheDefaults)
{
    EXPECT_FALSE(rows.gridSortOrder());
    EXPECT_FALSE(rows.tablet());
    EXPECT_FALSE(rows.category());
    EXPECT_FALSE(rows.categoryAtStartup());
    EXPECT_EQ(rows.categoryStartupBox(), 0);
    EXPECT_EQ(rows.assignCategoryOnAdd(), 0);
    EXPECT_EQ(rows.templateRecordID(), 0);
    EXPECT_FALSE(rows.backColor());
    EXPECT_TRUE(rows.all(u"FILTER"_s).isEmpty());
    rows.removeCategory();
    EXPECT_EQ(rowCount(), 0);
}

TEST_F(Settings, NumbersAreReadAsFarAsTheyAreSome)
{
    const struct
    {
        QVariant name;
        qint16 assign;
        qint64 templateId;
        std::optional<quint32> colour;
        bool isTrue;
        int box;
    } cases[] = {
        {QVariant(), 0, 0, std::nullopt, false, 0},
        {u""_s, 0, 0, std::nullopt, false, 0},
        {u"teal"_s, 0, 0, std::nullopt, false, 0},
        {u"-1"_s, 1, 0, std::nullopt, true, 0},
        {u"1"_s, 1, 1, 1, false, 1},
        {u"True"_s, 0, 0, std::nullopt, true, 0},
        {u"8421440"_s, 0, 8421440, 8421440, false, 0},
        {u"16777216"_s, 0, 16777216, std::nullopt, false, 0},
        {u"99999999999"_s, 0, 0, std::nullopt, false, 0},
        {u"1e300"_s, 0, 0, std::nullopt, false, 0},
    };
    for (const auto &c : cases) {
        clear();
        for (const auto *type : {settings::AssignCategoryOnAdd, settings::TemplateRecordID,
                                 settings::BackColor, settings::CategoryStartup, settings::Tablet})
            put(type, c.name);
        const std::string what = c.name.toString().toStdString();
        EXPECT_EQ(rows.assignCategoryOnAdd(), c.assign) << what;
        EXPECT_EQ(rows.templateRecordID(), c.templateId) << what;
        EXPECT_EQ(rows.backColor(), c.colour) << what;
        EXPECT_EQ(rows.tablet(), c.isTrue) << what;
        EXPECT_EQ(rows.categoryAtStartup(), c.isTrue) << what;
        EXPECT_EQ(rows.categoryStartupBox(), c.box) << what;
    }
}

TEST_F(Settings, AKindKeepsOneRowThroughManyWrites)
{
    for (const bool on : {true, false}) {
        rows.storeTablet(on);
        rows.storeGridSortOrder(on ? u"Rating"_s : u"Genre"_s);
        rows.storeCategory(on ? u"Jazz"_s : u"Soul"_s, u" CategoryNumber = 2 "_s);
        rows.storeBackColor(on ? 255 : 8421440);
        rows.storeTemplateRecordID(on ? 17 : 0);
        rows.storeCategoryStartupBox(on ? 1 : 0);
        rows.storeAssignCategoryOnAdd(on ? 1 : 0);
    }
    EXPECT_EQ(rowCount(), 7);
    store.reopen();
    EXPECT_EQ(store.column(u"Select Name from tblSettings Where Type='tablet'"_s), QStringList(u"False"_s));
    EXPECT_EQ(rows.gridSortOrder(), u"Genre"_s);
    EXPECT_EQ(rows.category()->Name, u"Soul"_s);
    EXPECT_EQ(rows.category()->Setting1, u" CategoryNumber = 2 "_s);
    EXPECT_EQ(rows.backColor(), 8421440U);
    // The number 0 stays in the row; it names no song.
    EXPECT_TRUE(rows.find(u"TEMPLATE RecordID"_s));
    EXPECT_EQ(rows.templateRecordID(), 0);
    rows.removeCategory();
    EXPECT_FALSE(rows.category());
}

TEST_F(Settings, NamedRowsAreFoundByKindAndName)
{
    const QString long8(70000, u'n');
    rows.storeNamed(u"FILTER"_s, u"Best"_s, u"Rating > \"***\""_s);
    rows.storeNamed(u"NOTE"_s, u"Best"_s, long8);
    rows.storeNamed(u"FILTER"_s, u"it's"_s, u"Year = \"1976\""_s);
    rows.storeNamed(u"FILTER"_s, u"BEST"_s, u"Rating = \"*****\""_s);
    EXPECT_EQ(rows.all(u"Filter"_s).size(), 2);
    EXPECT_EQ(rows.find(u"FILTER"_s, u"best"_s)->Setting8, u"Rating = \"*****\""_s);
    EXPECT_EQ(rows.find(u"FILTER"_s, u"it's"_s)->Setting8, u"Year = \"1976\""_s);
    EXPECT_EQ(rows.find(u"Note"_s, u"Best"_s)->Setting8, long8);
    EXPECT_TRUE(rows.rename(u"FILTER"_s, u"it's"_s, u"Seventies"_s));
    EXPECT_FALSE(rows.rename(u"FILTER"_s, u"it's"_s, u"Lost"_s));
    rows.remove(u"FILTER"_s, u"Best"_s);
    ASSERT_EQ(rows.all(u"FILTER"_s).size(), 1);
    EXPECT_EQ(rows.all(u"FILTER"_s).first().Name, u"Seventies"_s);
    EXPECT_TRUE(rows.find(u"NOTE"_s, u"Best"_s));
}

TEST_F(Settings, OptionsComeFromTheirTwoPlaces)
{
    OptionsStore user(store.path(u"options.ini"_s));
    Options options;
    loadUserOptions(user, options);
    EXPECT_FALSE(options.RememberWindowSize);
    saveFlagOption(user, keys::RememberWindowSize, true);
    saveFlagOption(user, keys::FileRenameDisabled, true);
    EXPECT_EQ(user.GetSetting(u"Options"_s, u"Remember Window Size"_s), u"-1"_s);
    rows.storeAssignCategoryOnAdd(1);
    rows.storeTemplateRecordID(4);
    loadUserOptions(user, options);
    loadCatalogueOptions(rows, options);
    EXPECT_TRUE(options.RememberWindowSize && options.FileRenameDisabled);
    EXPECT_EQ(options.AssignCategoryOnAdd, 1);
    EXPECT_EQ(options.TemplateRecordID, 4);
    saveFlagOption(user, keys::FileRenameDisabled, false);
    EXPECT_FALSE(flagOption(user, keys::FileRenameDisabled));
}

} // namespace
